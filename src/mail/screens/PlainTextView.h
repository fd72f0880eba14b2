#pragma once

#include "mail/screens/TextParagraphs.h"
#include "platform/Clock.h"
#include "ui/ThemeDefinition.h"

#include <QWidget>
#include <functional>

class ScrollingColumn;

/// Shows the plain text of a message, selectable, as tall as the text is. Like the HTML view it belongs into a scroll
/// area; only what can be seen is laid out, so that a text of any length opens at once.
class PlainTextView final : public QWidget {
    Q_OBJECT
public:
    explicit PlainTextView(QWidget *parent = nullptr);

    /// The looks of parts of a line, which must not change the room that it takes.
    using Highlighter = std::function<QList<QTextLayout::FormatRange>(const QString &line)>;

    void setText(const QString &text);
    void setTheme(const ThemeDefinition &theme);
    /// Letters of equal width, as in source text.
    void setFixedPitch(bool isFixed);
    void setHighlighter(Highlighter highlighter);
    /// 1 is the natural size.
    void setZoom(qreal zoom);

    const QString &text() const { return m_paragraphs.text(); }
    QString selectedText() const;
    /// Offsets into the text; the cursor is the end that moves.
    qsizetype selectionAnchor() const { return m_anchor; }
    qsizetype selectionCursor() const { return m_cursor; }
    void select(qsizetype anchor, qsizetype cursor);
    /// Where a character stands, in this widget's coordinates.
    QRect characterRect(qsizetype position) const;
    qsizetype positionAt(const QPointF &point) const;
    /// Scrolls the column until the character can be seen.
    void scrollTo(qsizetype position);

public Q_SLOTS:
    void copy();
    void selectAll();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void measureNext();
    void applyFont();
    void applyHeight();
    void paintText(QPainter &painter, const QRect &part);
    QList<QTextLayout::FormatRange> looks(int paragraph) const;

    QString m_text;
    TextParagraphs m_paragraphs;
    ScrollingColumn *m_column;
    ThemeDefinition m_theme;
    Highlighter m_highlighter;
    bool m_isFixedPitch = false;
    qreal m_zoom = 1;
    qsizetype m_anchor = 0, m_cursor = 0;
    ScheduledWorkPtr m_measuring;
};
