#pragma once

#include "mail/screens/TextParagraphs.h"
#include "platform/Clock.h"
#include "ui/ThemeDefinition.h"

#include <QWidget>

class ScrollingColumn;

/// Shows the plain text of a message, selectable, as tall as the text is. Like the HTML view it belongs into a scroll
/// area; only what can be seen is laid out, so that a text of any length opens at once.
class PlainTextView final : public QWidget {
    Q_OBJECT
public:
    explicit PlainTextView(QWidget *parent = nullptr);

    void setText(const QString &text);
    void setTheme(const ThemeDefinition &theme);

    QString selectedText() const;

public Q_SLOTS:
    void copySelection();
    void selectAll();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void measureNext();
    void applyHeight();
    void select(qsizetype anchor, qsizetype cursor);
    qsizetype positionAt(const QPointF &point) const;

    QString m_text;
    TextParagraphs m_paragraphs;
    ScrollingColumn *m_column;
    ThemeDefinition m_theme;
    qsizetype m_anchor = 0, m_cursor = 0;
    ScheduledWorkPtr m_measuring;
};
