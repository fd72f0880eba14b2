#pragma once

#include "mail/FocusedActions.h"

#include <QWidget>
#include <memory>

class AppState;

/// A window of the program: a menu bar, and under it the content, whose screens say what the menus can do.
class AppWindow final : public QWidget {
    Q_OBJECT
public:
    AppWindow(const QString &title, std::shared_ptr<AppState> appState, const std::function<void()> &openMainWindow);
    ~AppWindow() override;

    FocusedActions &focusedActions() { return m_focusedActions; }
    /// To be called once; takes the widget.
    void setContent(QWidget *content);
    QWidget *content() const { return m_content; }

private:
    FocusedActions m_focusedActions;
    QWidget *m_content = nullptr;
};
