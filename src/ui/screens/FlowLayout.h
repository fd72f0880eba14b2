#pragma once

#include <QLayout>
#include <memory>
#include <vector>

struct FlowGeometry;

/// Lays its widgets out in rows, as words are in a text.
class FlowLayout : public QLayout {
    Q_OBJECT
public:
    explicit FlowLayout(int spacing, QWidget *parent = nullptr);

    void addItem(QLayoutItem *item) override;
    int count() const override { return int(m_items.size()); }
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect &rect) override;

private:
    std::vector<QLayoutItem *> shownItems() const;
    FlowGeometry geometryFor(int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};
