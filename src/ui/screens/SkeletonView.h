#pragma once

#include <QVariantAnimation>
#include <QWidget>

/// Stands in for a list of messages while it loads: rows that gently pulse for as long as they are seen.
class SkeletonView : public QWidget {
    Q_OBJECT
public:
    explicit SkeletonView(QWidget *parent = nullptr);

    bool isShimmering() const { return m_shimmer.state() == QAbstractAnimation::Running; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void reverse();

    QVariantAnimation m_shimmer;
};
