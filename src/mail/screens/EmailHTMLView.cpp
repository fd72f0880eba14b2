#include "mail/screens/EmailHTMLView.h"

#include "mail/EmailHTMLPage.h"
#include "mail/screens/EmailHTMLInput.h"
#include "mail/screens/EmailHTMLScripts.h"
#include "mail/screens/PlainMailView.h"
#include "mail/screens/ScrollingColumn.h"
#include "platform/desktop/WebEngine.h"

#include <QFocusEvent>
#include <QPointer>

#include <cmath>

using namespace Qt::StringLiterals;

EmailHTMLView::EmailHTMLView(QWidget *parent)
    : QWidget(parent)
    , m_column(new ScrollingColumn(this))
    , m_input(new EmailHTMLInput(m_column, this))
    , m_cover(new QWidget(this)) {
    m_cover->setAutoFillBackground(true);
    setFixedHeight(int(m_coordinator.contentHeight()));
    connect(m_column, &ScrollingColumn::windowChanged, this, &EmailHTMLView::place);
    connect(&m_coordinator, &EmailHTMLCoordinator::loadRequested, this, &EmailHTMLView::load);
    connect(&m_coordinator, &EmailHTMLCoordinator::pageKept, this, &EmailHTMLView::keepPage);
    connect(&m_coordinator, &EmailHTMLCoordinator::contentHeightChanged, this, &EmailHTMLView::applyHeight);
    connect(&m_coordinator, &EmailHTMLCoordinator::contentHeightChanged, this, &EmailHTMLView::contentHeightChanged);
    connect(m_input, &EmailHTMLInput::zoomChanged, this, &EmailHTMLView::applyZoom);
    connect(m_input, &EmailHTMLInput::movedSideways, this, &EmailHTMLView::moveSideways);
}

EmailHTMLView::~EmailHTMLView() {
    if (m_webView)
        WebEngine::shared().recycle(std::move(m_webView), emailWebViewConfiguration());
}

void EmailHTMLView::warmUp() {
    WebEngine::shared().warmUp(emailWebViewConfiguration());
}

void EmailHTMLView::setHtml(const QString &html) {
    if (m_inputs.html == html)
        return;
    m_inputs.html = html;
    m_hasReloaded = false;
    m_awaitsPage = true;
    setPageHidden(true);
    m_cover->show();
    scheduleUpdate();
}

void EmailHTMLView::clear() {
    if (m_inputs.html.isEmpty())
        return;
    m_inputs.html.clear();
    m_coordinator.forget();
    m_cover->show();
    if (m_webView)
        m_webView->load("<!DOCTYPE html>", RemoteContent::Blocked);
}

void EmailHTMLView::setTheme(const ThemeDefinition &theme) {
    m_inputs.theme = theme;
    QPalette colors;
    colors.setColor(QPalette::Window, theme.bgWhite);
    m_cover->setPalette(colors);
    if (m_webView)
        m_webView->setBackgroundColor(theme.bgWhite);
    if (m_plainView)
        m_plainView->setTheme(theme);
    scheduleUpdate();
}

void EmailHTMLView::setShowImages(bool showImages) {
    m_inputs.showImages = showImages;
    scheduleUpdate();
}

// Several inputs that change in one turn of the event loop make one page.
void EmailHTMLView::scheduleUpdate() {
    if (std::exchange(m_updateScheduled, true))
        return;
    QMetaObject::invokeMethod(this, &EmailHTMLView::applyInputs, Qt::QueuedConnection);
}

void EmailHTMLView::applyInputs() {
    m_updateScheduled = false;
    if (!m_inputs.html.isEmpty())
        m_coordinator.update(m_inputs);
}

void EmailHTMLView::load(const QByteArray &page, bool showImages) {
    if (!makeWebView())
        return showAsText(WebEngine::shared().unavailableReason());
    delete std::exchange(m_plainView, nullptr);
    m_sentOffset = -1;
    m_fitScale = 1;
    m_awaitsPage = m_isPainted = false;
    setOverflow(0);
    m_webView->load(page, showImages ? RemoteContent::Drawing : RemoteContent::Blocked);
}

bool EmailHTMLView::makeWebView() {
    if (m_webView)
        return true;
    m_webView = WebEngine::shared().takeView(emailWebViewConfiguration());
    if (!m_webView)
        return false;
    auto *widget = m_webView->widget();
    m_webView->setDelegate(this);
    m_webView->setBackgroundColor(m_inputs.theme.bgWhite);
    m_webView->setMagnification(m_input->zoom());
    widget->setParent(this);
    m_input->watch(widget);
    place();
    widget->show();
    m_cover->raise();
    return true;
}

void EmailHTMLView::dropWebView() {
    m_webView->setDelegate(nullptr);
    m_webView->widget()->hide();
    m_webView.release()->widget()->deleteLater();
}

void EmailHTMLView::showAsText(const QString &reason) {
    if (!m_plainView) {
        m_plainView = new PlainMailView(this);
        connect(m_plainView, &PlainMailView::heightWanted, &m_coordinator, &EmailHTMLCoordinator::receiveHeight);
    }
    m_plainView->setTheme(m_inputs.theme);
    m_plainView->setReason(reason);
    m_plainView->setGeometry(rect());
    m_plainView->show();
    m_plainView->setHtml(m_inputs.html);
}

void EmailHTMLView::applyHeight() {
    const auto whole = std::ceil((contentHeight() + m_overflow) * m_fitScale * m_input->zoom());
    setFixedHeight(int(std::min(whole, qreal(QWIDGETSIZE_MAX))));
}

void EmailHTMLView::resizeEvent(QResizeEvent *) {
    m_cover->setGeometry(rect());
    if (m_plainView)
        m_plainView->setGeometry(rect());
}

void EmailHTMLView::setOverflow(qreal overflow) {
    m_overflow = std::max(0.0, overflow);
    applyHeight();
}

void EmailHTMLView::place() {
    if (!m_webView)
        return;
    const auto window = m_column->window();
    const auto top = std::clamp(window.top(), 0, std::max(0, height() - window.height()));
    m_webView->widget()->setGeometry(0, top, width(), window.height());
    if (std::exchange(m_sentOffset, top) != top)
        m_webView->evaluateJavaScript(u"scrollPage(%1)"_s.arg(top / m_input->zoom()));
}

void EmailHTMLView::followPage(qreal pageOffset) {
    m_sentOffset = qRound(pageOffset * m_input->zoom());
    m_column->scrollTo(m_sentOffset);
}

void EmailHTMLView::webViewDidFinish() {
    m_sentOffset = -1;
    place();
    // The page outlives this view when it is recycled.
    m_webView->evaluateJavaScript(emailHeightExpression, [self = QPointer(this)](const QVariant &height) {
        if (self)
            self->m_coordinator.receiveHeight(height);
    });
}

void EmailHTMLView::webViewDidPaint() {
    if (!m_awaitsPage && !m_inputs.html.isEmpty())
        reveal();
}

void EmailHTMLView::keepPage() {
    if (!std::exchange(m_awaitsPage, false))
        return;
    setPageHidden(false);
    if (m_isPainted)
        reveal();
}

// Under load the picture comes after the report of it. What stands there until then must not be the message before.
void EmailHTMLView::setPageHidden(bool isHidden) {
    if (m_webView)
        m_webView->evaluateJavaScript(
            u"document.documentElement.style.setProperty('visibility', '%1', 'important')"_s.arg(isHidden ? u"hidden"_s
                                                                                                          : u""_s));
}

void EmailHTMLView::reveal() {
    m_isPainted = true;
    m_cover->hide();
    Q_EMIT painted();
}

void EmailHTMLView::webViewDidReceiveMessage(const QString &name, const QVariant &body) {
    if (name == EmailHTMLHandler::height)
        m_coordinator.receiveHeight(body);
    else if (name == EmailHTMLHandler::scrolled)
        followPage(body.toDouble());
    else if (name == EmailHTMLHandler::overflow)
        setOverflow(body.toDouble());
    else if (name == EmailHTMLHandler::fit)
        setFitScale(body.toDouble());
}

void EmailHTMLView::setFitScale(qreal scale) {
    m_fitScale = std::clamp(scale, 0.1, 1.0);
    applyHeight();
}

void EmailHTMLView::moveSideways(int distance) {
    if (m_webView)
        m_webView->evaluateJavaScript(u"window.scrollBy(%1, 0)"_s.arg(distance / m_input->zoom()));
}

void EmailHTMLView::webViewDidActivateLink(const QUrl &url) {
    Q_EMIT linkActivated(url);
}

void EmailHTMLView::webViewDidHoverLink(const QUrl &url) {
    Q_EMIT linkHovered(url);
}

void EmailHTMLView::webViewProcessDidTerminate() {
    m_cover->show();
    if (!std::exchange(m_hasReloaded, true)) {
        QMetaObject::invokeMethod(&m_coordinator, &EmailHTMLCoordinator::reload, Qt::QueuedConnection);
        return;
    }
    dropWebView();
    showAsText(tr("The web engine failed while it drew this message."));
}

void EmailHTMLView::findText(const QString &text, bool backward) {
    if (m_webView)
        m_webView->findText(text, backward);
}

QString EmailHTMLView::selectedText() const {
    return m_webView ? m_webView->selectedText() : QString();
}

void EmailHTMLView::copySelection() {
    if (m_webView)
        m_webView->copySelection();
}

void EmailHTMLView::selectAll() {
    if (m_webView)
        m_webView->selectAll();
}

void EmailHTMLView::applyZoom() {
    if (m_webView) {
        m_webView->evaluateJavaScript(u"setEnlarged(%1)"_s.arg(m_input->zoom() == 1 ? u"false"_s : u"true"_s));
        m_webView->setMagnification(m_input->zoom());
    }
    applyHeight();
    place();
}

void EmailHTMLView::focusInEvent(QFocusEvent *event) {
    if (m_webView)
        m_webView->widget()->setFocus(event->reason());
    else if (m_plainView)
        m_plainView->setFocus(event->reason());
}
