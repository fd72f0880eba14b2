#pragma once

#include "ui/screens/ThemeLabel.h"

#include <QVBoxLayout>
#include <QWidget>

/// A raised surface with round corners that groups what belongs together. Under the theme `space` the sky shows
/// through.
class Card : public QWidget {
    Q_OBJECT
public:
    explicit Card(QWidget *parent = nullptr);

    /// The card's own layout, top to bottom.
    QVBoxLayout *column() const { return m_column; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_column;
};

/// The title of a group of controls.
class SectionHeading : public ThemeLabel {
    Q_OBJECT
public:
    explicit SectionHeading(const QString &text, QWidget *parent = nullptr);
};
