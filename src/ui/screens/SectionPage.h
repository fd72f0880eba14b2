#pragma once

#include <QWidget>

class QAbstractButton;
class QHBoxLayout;
class QVBoxLayout;

/// A section in place of the mail view: its title between the way back and its tools, and its content below, in a
/// column that does not grow with wide windows for ever.
class SectionPage : public QWidget {
    Q_OBJECT
public:
    explicit SectionPage(const QString &title, QWidget *parent = nullptr);

    /// Where the content goes, below the title.
    QVBoxLayout *column() const { return m_column; }
    /// A button at the right of the title.
    void addTool(QAbstractButton *button);

Q_SIGNALS:
    void backRequested();

private:
    QHBoxLayout *m_header;
    QVBoxLayout *m_column;
};
