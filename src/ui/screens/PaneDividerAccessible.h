#pragma once

#include <QAccessibleWidget>

class MacPaneDivider;

/// Lets assistive technology read the list's width and change it as the arrow keys do.
class PaneDividerAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit PaneDividerAccessible(MacPaneDivider *divider);

    /// Makes the toolkit use this class for dividers.
    static void install();

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    MacPaneDivider *divider() const;
};
