#include "mail/screens/EmailHTMLView.h"

#include "mail/EmailHTMLPage.h"
#include "mail/screens/PlainMailView.h"
#include "mail/screens/ScrollingColumn.h"
#include "platform/desktop/WebEngine.h"

#include <QChildEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QWheelEvent>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString heightHandler = u"heightHandler"_s;
const QString scrollHandler = u"scrolled"_s;
const QString overflowHandler = u"overflow"_s;

// The column decides where the page is scrolled to; what moves the page by itself, as a selection that is dragged over
// the edge or a match that was found does, is reported so that the column follows.
const QString scrollScript = uR"((() => {
    let expected = 0;
    window.scrollPage = offset => {
        window.scrollTo(window.scrollX, offset);
        expected = window.scrollY;
    };
    window.addEventListener('scroll', () => {
        if (Math.abs(window.scrollY - expected) <= 1) return;
        expected = window.scrollY;
        window.webkit.messageHandlers.scrolled.postMessage(expected);
    });
})();)"_s;

// What sticks out of the body, by its margins or because the mail gave the body a height of its own.
const QString overflowScript = uR"((() => {
    let lastOverflow = 0;
    const heightOf = element => Math.ceil(element.getBoundingClientRect().height);
    const report = () => {
        const root = document.documentElement;
        const scrolled = root.scrollHeight > window.innerHeight ? root.scrollHeight : 0;
        const overflow = Math.max(0, Math.max(scrolled, heightOf(root)) - heightOf(document.body));
        if (Math.abs(overflow - lastOverflow) <= 1) return;
        lastOverflow = overflow;
        window.webkit.messageHandlers.overflow.postMessage(overflow);
    };
    new ResizeObserver(report).observe(document.body);
    document.addEventListener('load', report, true);
    window.addEventListener('load', report);
    report();
})();)"_s;

WebViewConfiguration configuration() {
    return {.allowsContentJavaScript = false,
            .userScripts = {emailHeightScript, overflowScript, scrollScript},
            .messageHandlers = {heightHandler, overflowHandler, scrollHandler}};
}

constexpr qreal zoomStep = 1.1;

} // namespace

EmailHTMLView::EmailHTMLView(QWidget *parent)
    : QWidget(parent)
    , m_column(new ScrollingColumn(this))
    , m_cover(new QWidget(this)) {
    m_cover->setAutoFillBackground(true);
    setFixedHeight(int(m_coordinator.contentHeight()));
    connect(m_column, &ScrollingColumn::windowChanged, this, &EmailHTMLView::place);
    connect(&m_coordinator, &EmailHTMLCoordinator::loadRequested, this, &EmailHTMLView::load);
    connect(&m_coordinator, &EmailHTMLCoordinator::pageKept, this, &EmailHTMLView::webViewDidPaint);
    connect(&m_coordinator, &EmailHTMLCoordinator::contentHeightChanged, this, &EmailHTMLView::applyHeight);
    connect(&m_coordinator, &EmailHTMLCoordinator::contentHeightChanged, this, &EmailHTMLView::contentHeightChanged);
}

EmailHTMLView::~EmailHTMLView() {
    if (m_webView)
        WebEngine::shared().recycle(std::move(m_webView), configuration());
}

void EmailHTMLView::warmUp() {
    WebEngine::shared().warmUp(configuration());
}

void EmailHTMLView::setHtml(const QString &html) {
    if (m_inputs.html == html)
        return;
    m_inputs.html = html;
    m_hasReloaded = false;
    m_cover->show();
    scheduleUpdate();
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
    if (m_webView || !m_inputs.html.isEmpty())
        m_coordinator.update(m_inputs);
}

void EmailHTMLView::load(const QByteArray &page, bool showImages) {
    if (!makeWebView())
        return showAsText(WebEngine::shared().unavailableReason());
    delete std::exchange(m_plainView, nullptr);
    m_sentOffset = -1;
    setOverflow(0);
    m_webView->load(page, showImages ? RemoteContent::Drawing : RemoteContent::Blocked);
}

bool EmailHTMLView::makeWebView() {
    if (m_webView)
        return true;
    m_webView = WebEngine::shared().takeView(configuration());
    if (!m_webView)
        return false;
    auto *widget = m_webView->widget();
    m_webView->setDelegate(this);
    m_webView->setBackgroundColor(m_inputs.theme.bgWhite);
    m_webView->setMagnification(m_magnification);
    widget->setParent(this);
    watchInput(widget);
    place();
    widget->show();
    m_cover->raise();
    return true;
}

// The widget that gets the input is a child of the web view, which makes a new one now and then.
void EmailHTMLView::watchInput(QObject *child) {
    child->installEventFilter(this);
    for (auto *grandchild : child->children())
        if (grandchild->isWidgetType())
            watchInput(grandchild);
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
    const auto whole = std::ceil((contentHeight() + m_overflow) * m_magnification);
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
        m_webView->evaluateJavaScript(u"scrollPage(%1)"_s.arg(top / m_magnification));
}

void EmailHTMLView::followPage(qreal pageOffset) {
    m_sentOffset = qRound(pageOffset * m_magnification);
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
    m_cover->hide();
    Q_EMIT painted();
}

void EmailHTMLView::webViewDidReceiveMessage(const QString &name, const QVariant &body) {
    if (name == heightHandler)
        m_coordinator.receiveHeight(body);
    else if (name == scrollHandler)
        followPage(body.toDouble());
    else if (name == overflowHandler)
        setOverflow(body.toDouble());
}

void EmailHTMLView::webViewDidActivateLink(const QUrl &url) {
    Q_EMIT linkActivated(url);
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

void EmailHTMLView::zoomIn() {
    setMagnification(m_magnification * zoomStep);
}

void EmailHTMLView::zoomOut() {
    setMagnification(m_magnification / zoomStep);
}

void EmailHTMLView::resetZoom() {
    setMagnification(1);
}

void EmailHTMLView::setMagnification(qreal factor) {
    m_magnification = std::clamp(factor, 0.25, 5.0);
    if (m_webView)
        m_webView->setMagnification(m_magnification);
    applyHeight();
}

bool EmailHTMLView::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::ChildAdded)
        watchInput(static_cast<QChildEvent *>(event)->child());
    return handleInput(event) || QWidget::eventFilter(watched, event);
}

bool EmailHTMLView::handleInput(QEvent *event) {
    switch (event->type()) {
    case QEvent::Wheel:
        return handleWheel(event);
    case QEvent::KeyPress:
        return handleKey(event);
    default:
        return false;
    }
}

// A wheel that turns sideways is the page's own affair; any other is left to the column.
bool EmailHTMLView::handleWheel(QEvent *event) {
    const auto *wheel = static_cast<QWheelEvent *>(event);
    const auto turn = wheel->angleDelta();
    if (wheel->modifiers() & Qt::ControlModifier) {
        setMagnification(m_magnification * std::pow(zoomStep, turn.y() / 120.0));
        return true;
    }
    if (std::abs(turn.x()) > std::abs(turn.y()))
        return false;
    return m_column->handleWheel(event);
}

bool EmailHTMLView::handleKey(QEvent *event) {
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->matches(QKeySequence::ZoomIn))
        zoomIn();
    else if (key->matches(QKeySequence::ZoomOut))
        zoomOut();
    else if (key->modifiers() == Qt::ControlModifier && key->key() == Qt::Key_0)
        resetZoom();
    else
        return m_column->handleKey(key);
    return true;
}
