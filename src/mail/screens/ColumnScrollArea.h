#pragma once

#include <QScrollArea>

/// Scrolls a column of parts, each of which may be taller than what can be seen of it. The Tab key moves the column no
/// further than is needed to see something of the part that it leads to.
class ColumnScrollArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ColumnScrollArea(QWidget *parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;

private:
    void bringIntoView(QWidget *part, bool fromAbove);
};
