#include "app/screens/ComposePresenter.h"

#include "app/screens/AppWindow.h"
#include "compose/screens/ComposeView.h"

#include <QEvent>

namespace {

constexpr QSize usualSize(820, 680);
constexpr int smallestWidth = 520;
/// A dialog, so that the desktop keeps it above the main window; one that is minimised could not be brought back.
constexpr Qt::WindowFlags sheetFlags = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                       Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;

} // namespace

ComposePresenter::ComposePresenter(std::shared_ptr<AppState> appState, AppWindow *window,
                                   std::function<void()> openMainWindow)
    : QObject(window)
    , m_appState(std::move(appState))
    , m_window(window)
    , m_openMainWindow(std::move(openMainWindow)) {
    observe(m_appState.get(), this, &ComposePresenter::render);
}

ComposeView *ComposePresenter::composeView() const {
    return m_sheet ? qobject_cast<ComposeView *>(m_sheet->content()) : nullptr;
}

void ComposePresenter::render() {
    const bool isWanted = m_appState->showCompose && m_appState->isAuthenticated;
    if (m_sheet && (!isWanted || m_shownID != m_appState->composePresentationID.get()))
        delete m_sheet;
    if (isWanted && !m_sheet)
        present();
}

void ComposePresenter::present() {
    m_shownID = m_appState->composePresentationID;
    m_sheet = new AppWindow({}, m_appState, m_openMainWindow);
    m_sheet->setParent(m_window, sheetFlags);
    m_sheet->setWindowModality(Qt::WindowModal);
    m_sheet->installEventFilter(this);
    auto *view = new ComposeView(ComposeState::make(m_appState), m_sheet->focusedActions());
    view->setMinimumWidth(smallestWidth);
    connect(view, &ComposeView::dismissed, this, &ComposePresenter::dismiss, Qt::QueuedConnection);
    connect(view, &ComposeView::titleChanged, m_sheet, &QWidget::setWindowTitle);
    m_sheet->setWindowTitle(view->state().title());
    m_sheet->setContent(view);
    QRect place({}, usualSize.boundedTo(m_window->size()));
    place.moveCenter(m_window->geometry().center());
    m_sheet->setGeometry(place);
    m_sheet->show();
}

void ComposePresenter::dismiss() {
    m_appState->showCompose = false;
}

bool ComposePresenter::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Close)
        dismiss();
    return QObject::eventFilter(watched, event);
}
