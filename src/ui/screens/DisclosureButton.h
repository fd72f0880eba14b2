#pragma once

#include <QPushButton>

/// A button that unfolds what stands below it and folds it up again; its owner does both.
class DisclosureButton : public QPushButton {
    Q_OBJECT
public:
    explicit DisclosureButton(const QString &symbol, QWidget *parent = nullptr);

    void setExpanded(bool isExpanded);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isExpanded = false;
};
