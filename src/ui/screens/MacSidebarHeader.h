#pragma once

#include <QPushButton>
#include <QWidget>

/// A button of the sidebar over its whole width, in the theme's accent.
class MacSidebarAction : public QPushButton {
    Q_OBJECT
public:
    MacSidebarAction(const QString &icon, const QString &title, const QString &help, QWidget *parent = nullptr);
};

/// The top of the sidebar: whose program this is, and the button that starts a message.
class MacSidebarHeader : public QWidget {
    Q_OBJECT
public:
    explicit MacSidebarHeader(QWidget *parent = nullptr);

Q_SIGNALS:
    void composeRequested();
};
