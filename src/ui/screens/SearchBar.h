#pragma once

#include <QLineEdit>

/// A box for a search text, with a magnifying glass and a button that empties it. `returnPressed` submits.
class SearchBar : public QLineEdit {
    Q_OBJECT
public:
    explicit SearchBar(const QString &placeholder, QWidget *parent = nullptr);

    /// Takes the keyboard focus and selects what is there.
    void requestFocus();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAction *m_clear;
};
