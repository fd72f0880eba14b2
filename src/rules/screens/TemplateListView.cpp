#include "rules/screens/TemplateListView.h"

#include "rules/screens/TemplateSheet.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ListRowDelegate.h"
#include "ui/screens/RowsView.h"

#include <QShowEvent>
#include <QVBoxLayout>

TemplateListView::TemplateListView(std::shared_ptr<TemplateListState> state, QWidget *parent)
    : SectionPage(tr("Quick Reply Templates"), parent)
    , m_state(std::move(state))
    , m_rows(new RowsView(new ListRowDelegate(ListRowDelegate::Picture::none))) {
    auto *addButton = new IconButton(QStringLiteral("plus"), tr("New Template"));
    connect(addButton, &IconButton::clicked, this, [this] { m_state->showCreate = true; });
    addTool(addButton);
    setUpRows();
    observe(m_state.get(), this, &TemplateListView::renderSheet);
}

void TemplateListView::setUpRows() {
    m_rows->setAccessibleName(tr("Quick Reply Templates"));
    m_rows->setModel(&m_state->rows);
    m_rows->offerActions([this](const QModelIndex &index) { return m_state->actions(idAt(index)); });
    connect(m_rows, &RowsView::deleteRequested, this, [this](const QModelIndex &index) {
        if (index.isValid())
            m_state->remove(idAt(index));
    });
    column()->addWidget(m_rows, 1);
}

void TemplateListView::showEvent(QShowEvent *event) {
    SectionPage::showEvent(event);
    if (!event->spontaneous())
        m_rows->setFocus();
}

void TemplateListView::renderSheet() {
    const bool isOpen = m_sheet && m_sheet->isVisible();
    if (isOpen && !m_state->showCreate) {
        m_sheet->close();
    } else if (m_state->showCreate && !isOpen) {
        m_sheet = new TemplateSheet(m_state, this);
        m_sheet->open();
    }
}
