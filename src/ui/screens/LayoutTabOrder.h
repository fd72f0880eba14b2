#pragma once

#include <QObject>

class QWidget;

/// Leads the Tab key through a widget in the order in which its layouts hold their parts, also through parts that are
/// added later: by themselves these would come after everything else in the window.
class LayoutTabOrder final : public QObject {
    Q_OBJECT
public:
    explicit LayoutTabOrder(QWidget *root);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void chainSoon();
    void chain();

    QWidget *m_root;
    bool m_isScheduled = false;
};
