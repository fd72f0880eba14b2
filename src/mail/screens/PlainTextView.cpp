#include "mail/screens/PlainTextView.h"

#include "mail/screens/PlainTextAccessible.h"
#include "mail/screens/ScrollingColumn.h"
#include "mail/screens/Zoom.h"
#include "ui/screens/StyleShapes.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 20;
/// Between the edge and the sign that the text has the focus.
constexpr int focusMargin = 4;
constexpr int fontSize = 14;
constexpr int fixedFontSize = 13;
/// How long one turn of measuring may keep the main thread, in milliseconds.
constexpr int measuringSlice = 4;

QTextLayout::FormatRange selectionIn(qsizetype from, qsizetype to, qsizetype start, qsizetype length,
                                     const QPalette &palette) {
    QTextLayout::FormatRange range;
    range.start = int(std::clamp<qsizetype>(from - start, 0, length));
    range.length = int(std::clamp<qsizetype>(to - start, 0, length)) - range.start;
    range.format.setBackground(palette.highlight());
    range.format.setForeground(palette.highlightedText());
    return range;
}

} // namespace

PlainTextView::PlainTextView(QWidget *parent)
    : QWidget(parent)
    , m_column(new ScrollingColumn(this)) {
    // Before anything asks how to read this widget: naming it does.
    PlainTextAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    setAccessibleName(tr("Message text"));
    applyFont();
}

void PlainTextView::setText(const QString &text) {
    if (text == m_text)
        return;
    m_text = text;
    m_anchor = m_cursor = 0;
    m_paragraphs.setText(text);
    applyHeight();
    measureNext();
    update();
}

void PlainTextView::setTheme(const ThemeDefinition &theme) {
    m_theme = theme;
    update();
}

void PlainTextView::setFixedPitch(bool isFixed) {
    m_isFixedPitch = isFixed;
    applyFont();
}

void PlainTextView::setHighlighter(Highlighter highlighter) {
    m_highlighter = std::move(highlighter);
    update();
}

void PlainTextView::setZoom(qreal zoom) {
    m_zoom = zoom;
    applyFont();
}

void PlainTextView::applyFont() {
    auto textFont = m_isFixedPitch ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QGuiApplication::font();
    const int size = m_isFixedPitch ? fixedFontSize : fontSize;
    textFont.setPixelSize(std::max(1, qRound(size * m_zoom)));
    setFont(textFont);
}

void PlainTextView::measureNext() {
    m_measuring.reset();
    if (m_paragraphs.isMeasured())
        return;
    m_paragraphs.measure(measuringSlice);
    applyHeight();
    m_measuring = Clock::shared().after({}, [this] { measureNext(); });
}

void PlainTextView::applyHeight() {
    setFixedHeight(std::min(m_paragraphs.height() + 2 * padding, QWIDGETSIZE_MAX));
    update();
}

bool PlainTextView::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange)
        applyFont();
    if (event->type() == QEvent::FontChange) {
        m_paragraphs.setGeometry(font(), width() - 2 * padding);
        measureNext();
    }
    return QWidget::event(event);
}

void PlainTextView::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    // Measuring changes the height, and must not start itself from there.
    if (event->size().width() == event->oldSize().width())
        return;
    m_paragraphs.setGeometry(font(), width() - 2 * padding);
    measureNext();
}

void PlainTextView::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    if (m_paragraphs.count() > 0)
        paintText(painter, event->rect());
    QStyleOption option;
    option.initFrom(this);
    const auto frame = rect().adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
    if (showsFocusRing(option))
        paintFocusRing(&painter, frame, StyleMetrics::rowRadius, m_theme);
}

void PlainTextView::paintText(QPainter &painter, const QRect &part) {
    painter.setPen(m_theme.text);
    const auto area = part.translated(0, -padding);
    const auto last = m_paragraphs.paragraphAt(area.bottom());
    for (int number = m_paragraphs.paragraphAt(area.top()); number <= last; ++number) {
        const QPointF place(padding, padding + m_paragraphs.top(number));
        m_paragraphs.layout(number)->draw(&painter, place, looks(number));
    }
}

QList<QTextLayout::FormatRange> PlainTextView::looks(int paragraph) const {
    const auto start = m_paragraphs.start(paragraph), length = m_paragraphs.length(paragraph);
    QList<QTextLayout::FormatRange> ranges;
    if (m_highlighter)
        ranges = m_highlighter(m_paragraphs.text().mid(start, length));
    const auto [from, to] = std::minmax(m_anchor, m_cursor);
    const auto selection = selectionIn(from, to, start, length, palette());
    if (selection.length > 0)
        ranges.append(selection);
    return ranges;
}

QRect PlainTextView::characterRect(qsizetype position) const {
    return m_paragraphs.count() == 0 ? QRect() : m_paragraphs.characterRect(position).translated(padding, padding);
}

void PlainTextView::scrollTo(qsizetype position) {
    const auto place = characterRect(position);
    const auto window = m_column->window();
    if (place.top() < window.top())
        m_column->scrollTo(place.top());
    else if (place.bottom() > window.bottom())
        m_column->scrollTo(place.bottom() - window.height());
}

qsizetype PlainTextView::positionAt(const QPointF &point) const {
    return m_paragraphs.positionAt(point - QPointF(padding, padding));
}

void PlainTextView::select(qsizetype anchor, qsizetype cursor) {
    m_anchor = anchor;
    m_cursor = cursor;
    update(m_column->window());
    QAccessibleTextSelectionEvent event(this, int(std::min(anchor, cursor)), int(std::max(anchor, cursor)));
    QAccessible::updateAccessibility(&event);
}

void PlainTextView::wheelEvent(QWheelEvent *event) {
    const auto zoom = zoomAfterWheel(m_zoom, event);
    if (!zoom)
        return QWidget::wheelEvent(event);
    setZoom(*zoom);
    event->accept();
}

void PlainTextView::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton)
        return;
    const auto position = positionAt(event->position());
    select(event->modifiers() & Qt::ShiftModifier ? m_anchor : position, position);
}

void PlainTextView::mouseMoveEvent(QMouseEvent *event) {
    if (!(event->buttons() & Qt::LeftButton))
        return;
    select(m_anchor, positionAt(event->position()));
    const auto window = m_column->window();
    const auto y = int(event->position().y());
    if (y < window.top())
        m_column->scrollTo(y);
    else if (y > window.bottom())
        m_column->scrollTo(window.top() + y - window.bottom());
}

void PlainTextView::mouseDoubleClickEvent(QMouseEvent *event) {
    const auto position = positionAt(event->position());
    if (m_paragraphs.count() == 0)
        return;
    const auto paragraph = m_paragraphs.paragraphAt(int(event->position().y()) - padding);
    const auto start = m_paragraphs.start(paragraph);
    QTextBoundaryFinder words(QTextBoundaryFinder::Word,
                              m_paragraphs.text().mid(start, m_paragraphs.length(paragraph)));
    words.setPosition(position - start);
    if (!words.isAtBoundary())
        words.toPreviousBoundary();
    const auto wordStart = start + words.position();
    const auto wordEnd = words.toNextBoundary();
    select(wordStart, wordEnd < 0 ? wordStart : start + wordEnd);
}

void PlainTextView::keyPressEvent(QKeyEvent *event) {
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else if (const auto zoom = zoomAfterKey(m_zoom, event))
        setZoom(*zoom);
    else if (!m_column->handleKey(event))
        QWidget::keyPressEvent(event);
}

void PlainTextView::contextMenuEvent(QContextMenuEvent *event) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto *copy = menu->addAction(tr("Copy"), this, &PlainTextView::copy);
    copy->setEnabled(m_anchor != m_cursor);
    menu->addAction(tr("Select All"), this, &PlainTextView::selectAll);
    menu->popup(event->globalPos());
}

QString PlainTextView::selectedText() const {
    const auto [from, to] = std::minmax(m_anchor, m_cursor);
    return m_paragraphs.text().mid(from, to - from);
}

void PlainTextView::copy() {
    if (m_anchor != m_cursor)
        QGuiApplication::clipboard()->setText(selectedText());
}

void PlainTextView::selectAll() {
    select(0, m_paragraphs.text().size());
}
