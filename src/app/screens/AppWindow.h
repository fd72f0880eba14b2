#pragma once

#include "mail/FocusedActions.h"

#include <QWidget>
#include <memory>

class AppState;

/// Shows the window above the others, even if it was minimised, and gives it the keyboard.
void bringToFront(QWidget &window);

/// A window of the program: a menu bar, and under it the content, whose screens say what the menus can do. While a
/// modal window of its own is open, that one comes to the front in its place.
class AppWindow final : public QWidget {
    Q_OBJECT
public:
    AppWindow(const QString &title, std::shared_ptr<AppState> appState, const std::function<void()> &openMainWindow);
    ~AppWindow() override;

    FocusedActions &focusedActions() { return m_focusedActions; }
    /// To be called once; takes the widget.
    void setContent(QWidget *content);
    QWidget *content() const { return m_content; }

protected:
    bool event(QEvent *event) override;

private:
    void yieldToModal();

    FocusedActions m_focusedActions;
    QWidget *m_content = nullptr;
};
