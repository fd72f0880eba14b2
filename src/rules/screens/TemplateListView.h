#pragma once

#include "rules/TemplateListState.h"
#include "ui/screens/SectionPage.h"

#include <QPointer>

class RowsView;
class TemplateSheet;

/// The templates to write from, which can be added and deleted here.
class TemplateListView final : public SectionPage {
    Q_OBJECT
public:
    explicit TemplateListView(std::shared_ptr<TemplateListState> state, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void setUpRows();
    void renderSheet();
    QString idAt(const QModelIndex &index) const { return m_state->rows.row(index.row()).id; }

    std::shared_ptr<TemplateListState> m_state;
    RowsView *m_rows;
    QPointer<TemplateSheet> m_sheet;
};
