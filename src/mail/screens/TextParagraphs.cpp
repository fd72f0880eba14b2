#include "mail/screens/TextParagraphs.h"

#include "platform/Clock.h"

#include <QFontMetricsF>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace {

/// A line longer than this is cut, since laying out takes time that grows with its length.
constexpr qsizetype longestParagraph = 4000;

/// Where a piece of at most `longestParagraph` characters ends: behind the last blank, or between two characters.
qsizetype pieceEnd(const QString &text, qsizetype start, qsizetype end) {
    if (end - start <= longestParagraph)
        return end;
    const auto limit = start + longestParagraph;
    const auto blank = text.lastIndexOf(u' ', limit - 1);
    if (blank > start)
        return blank + 1;
    return text.at(limit).isLowSurrogate() ? limit - 1 : limit;
}

} // namespace

void TextParagraphs::setText(const QString &text) {
    m_text = text;
    m_text.remove(u'\r');
    m_paragraphs.clear();
    for (qsizetype start = 0; start < m_text.size();) {
        const auto newline = m_text.indexOf(u'\n', start);
        const auto lineEnd = newline < 0 ? m_text.size() : newline;
        do {
            const auto end = pieceEnd(m_text, start, lineEnd);
            m_paragraphs.push_back({start, end - start, 0});
            start = end;
        } while (start < lineEnd);
        ++start;
    }
    estimate();
}

void TextParagraphs::setGeometry(const QFont &font, int width) {
    if (font == m_font && width == m_width)
        return;
    m_font = font;
    m_width = std::max(1, width);
    estimate();
}

void TextParagraphs::estimate() {
    const QFontMetricsF metrics(m_font);
    const auto perLine = std::max(1.0, m_width / metrics.averageCharWidth());
    for (auto &paragraph : m_paragraphs)
        paragraph.height = int(std::max(1.0, std::ceil(double(paragraph.length) / perLine)) * metrics.lineSpacing());
    m_measured = 0;
    m_tops.assign(m_paragraphs.size() + 1, 0);
    sumUp(0);
}

void TextParagraphs::sumUp(int from) {
    for (int number = from; number < count(); ++number)
        m_tops[number + 1] = m_tops[number] + m_paragraphs[number].height;
}

int TextParagraphs::paragraphAt(int y) const {
    const auto above = std::upper_bound(m_tops.begin(), m_tops.end(), y);
    return std::clamp(int(above - m_tops.begin()) - 1, 0, std::max(0, count() - 1));
}

std::unique_ptr<QTextLayout> TextParagraphs::layout(int paragraph) const {
    auto result = std::make_unique<QTextLayout>(m_text.mid(start(paragraph), length(paragraph)), m_font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setAlignment(result->text().isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    result->setTextOption(option);
    result->setCacheEnabled(true);
    const auto spacing = QFontMetricsF(m_font).lineSpacing();
    qreal y = 0;
    result->beginLayout();
    for (auto line = result->createLine(); line.isValid(); line = result->createLine()) {
        line.setLineWidth(m_width);
        line.setPosition({0, y});
        y += std::max(spacing, line.height());
    }
    result->endLayout();
    return result;
}

qsizetype TextParagraphs::positionAt(const QPointF &point) const {
    if (count() == 0)
        return 0;
    const auto paragraph = paragraphAt(int(point.y()));
    const auto laidOut = layout(paragraph);
    const auto y = point.y() - top(paragraph);
    for (int number = 0; number < laidOut->lineCount(); ++number) {
        const auto line = laidOut->lineAt(number);
        if (y < line.y() + line.height() || number == laidOut->lineCount() - 1)
            return start(paragraph) + line.xToCursor(point.x());
    }
    return start(paragraph);
}

int TextParagraphs::paragraphOf(qsizetype position) const {
    const auto startsBehind = [](qsizetype wanted, const Paragraph &paragraph) { return wanted < paragraph.start; };
    const auto behind = std::upper_bound(m_paragraphs.begin(), m_paragraphs.end(), position, startsBehind);
    return std::max(0, int(behind - m_paragraphs.begin()) - 1);
}

QRect TextParagraphs::characterRect(qsizetype position) const {
    const auto paragraph = paragraphOf(position);
    const auto laidOut = layout(paragraph);
    const int offset = int(std::min(position - start(paragraph), length(paragraph)));
    const auto line = laidOut->lineForTextPosition(offset);
    if (!line.isValid())
        return {0, top(paragraph), 1, m_paragraphs[paragraph].height};
    const auto from = line.cursorToX(offset), to = line.cursorToX(offset + 1);
    const QRectF place(std::min(from, to), top(paragraph) + line.y(), std::abs(to - from), line.height());
    return place.toAlignedRect();
}

void TextParagraphs::measure(int milliseconds) {
    const auto end = Clock::shared().uptime() + Clock::Duration(milliseconds);
    const auto first = m_measured;
    const auto spacing = QFontMetricsF(m_font).lineSpacing();
    while (!isMeasured() && Clock::shared().uptime() < end) {
        const auto laidOut = layout(m_measured);
        const auto last = laidOut->lineAt(laidOut->lineCount() - 1);
        m_paragraphs[m_measured].height =
            int(std::ceil(last.isValid() ? last.y() + std::max(spacing, last.height()) : spacing));
        ++m_measured;
    }
    sumUp(first);
}
