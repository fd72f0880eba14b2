#pragma once

#include "ui/screens/ThemeLabel.h"

/// A text in at most so many lines, as wide as there is room: words too long for a line are broken, and what does not
/// fit is cut off with an ellipsis and shown by the tool tip.
class ClampedLabel : public ThemeLabel {
    Q_OBJECT
public:
    explicit ClampedLabel(int maximumLines, TextStyle style = TextStyle::body, TextRole role = TextRole::main,
                          QWidget *parent = nullptr);

    /// Where the ellipsis stands in the last line; at its end unless told otherwise.
    void setElideMode(Qt::TextElideMode mode) { m_elideMode = mode; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return m_maximumLines > 1; }
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// The lines as they are shown, the last one cut off where it has to be.
    QStringList lines(int width) const;
    bool isCut() const;
    int lineHeight() const { return fontMetrics().lineSpacing(); }

    const int m_maximumLines;
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
};
