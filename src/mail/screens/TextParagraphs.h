#pragma once

#include <QFont>
#include <QTextLayout>
#include <vector>

/// A text cut into paragraphs that are laid out one by one, so that a text of any length can be shown at once: heights
/// are estimated until they have been measured. Positions are offsets into the text; distances are pixels.
class TextParagraphs {
public:
    void setText(const QString &text);
    void setGeometry(const QFont &font, int width);

    const QString &text() const { return m_text; }
    int count() const { return int(m_paragraphs.size()); }
    int height() const { return m_paragraphs.empty() ? 0 : m_tops.back(); }
    int top(int paragraph) const { return m_tops[paragraph]; }
    qsizetype start(int paragraph) const { return m_paragraphs[paragraph].start; }
    qsizetype length(int paragraph) const { return m_paragraphs[paragraph].length; }

    int paragraphAt(int y) const;
    /// The place in the text that is nearest to the point.
    qsizetype positionAt(const QPointF &point) const;
    /// The place of a character of the text, which must not be empty.
    QRect characterRect(qsizetype position) const;
    /// Lays a paragraph out; its origin is the paragraph's top left corner.
    std::unique_ptr<QTextLayout> layout(int paragraph) const;

    bool isMeasured() const { return m_measured == count(); }
    /// Measures paragraphs from the first unmeasured one on, for about this many milliseconds.
    void measure(int milliseconds);

private:
    struct Paragraph {
        qsizetype start, length;
        int height;
    };

    int paragraphOf(qsizetype position) const;
    void estimate();
    void sumUp(int from);

    QString m_text;
    QFont m_font;
    int m_width = 1;
    int m_measured = 0;
    std::vector<Paragraph> m_paragraphs;
    /// One more than there are paragraphs.
    std::vector<int> m_tops;
};
