#pragma once

#include "app/AppState.h"

#include <QPointer>

class AppWindow;
class ComposeView;

/// Shows the compose screen as a sheet over the main window for as long as `showCompose` is on, and a new one for each
/// `composePresentationID`. The sheet is a window with a menu bar of its own, so that messages in other windows can be
/// read meanwhile.
class ComposePresenter final : public QObject {
    Q_OBJECT
public:
    /// `window` is the main window, which the sheet belongs to and goes with.
    ComposePresenter(std::shared_ptr<AppState> appState, AppWindow *window, std::function<void()> openMainWindow);

    ComposeView *composeView() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void render();
    void present();
    void dismiss();

    std::shared_ptr<AppState> m_appState;
    AppWindow *m_window;
    std::function<void()> m_openMainWindow;
    QPointer<AppWindow> m_sheet;
    QUuid m_shownID;
};
