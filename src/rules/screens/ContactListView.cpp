#include "rules/screens/ContactListView.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/ListRowDelegate.h"
#include "ui/screens/RowsView.h"
#include "ui/screens/SearchBar.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

ContactListView::ContactListView(std::shared_ptr<ContactListState> state, QWidget *parent)
    : SectionPage(tr("Contacts"), parent)
    , m_state(std::move(state))
    , m_search(new SearchBar(tr("Search contacts...")))
    , m_stack(new QStackedWidget)
    , m_rows(new RowsView(new ListRowDelegate(ListRowDelegate::Picture::initials)))
    , m_placeholder(new EmptyStateView) {
    auto *addButton = new IconButton(QStringLiteral("plus"), tr("Add Contact"));
    connect(addButton, &IconButton::clicked, this, &ContactListView::startAdding);
    addTool(addButton);
    setUpSearch();
    setUpRows();
    setUpPlaceholder();
    column()->addWidget(m_stack, 1);
    observe(m_state.get(), this, &ContactListView::render);
}

void ContactListView::setUpSearch() {
    auto *row = new QHBoxLayout;
    row->setContentsMargins(12, 0, 12, 0);
    row->addWidget(m_search);
    column()->addLayout(row);
    connect(m_search, &SearchBar::textChanged, m_state.get(),
            [this](const QString &text) { m_state->searchQuery = text; });
    connect(m_search, &SearchBar::returnPressed, m_rows, qOverload<>(&QWidget::setFocus));
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_search, &SearchBar::requestFocus);
}

void ContactListView::setUpRows() {
    m_rows->setAccessibleName(tr("Contacts"));
    m_rows->setModel(&m_state->rows);
    m_rows->offerActions([this](const QModelIndex &index) { return m_state->actions(idAt(index)); });
    connect(m_rows, &QListView::clicked, this, &ContactListView::edit);
    connect(m_rows, &RowsView::openRequested, this, &ContactListView::edit);
    connect(m_rows, &RowsView::deleteRequested, this, [this](const QModelIndex &index) {
        if (index.isValid())
            m_state->remove(idAt(index));
    });
    m_stack->addWidget(m_rows);
}

void ContactListView::setUpPlaceholder() {
    connect(m_placeholder, &EmptyStateView::buttonPressed, this, &ContactListView::startAdding);
    m_stack->addWidget(m_placeholder);
}

void ContactListView::startAdding() {
    m_state->showAdd = true;
}

void ContactListView::edit(const QModelIndex &index) {
    if (index.isValid())
        m_state->startEditing(idAt(index));
}

/// Letters that are typed over the rows search, and the arrow leads from the search to what it found.
void ContactListView::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Down && m_search->hasFocus())
        return m_rows->setFocus();
    if (!isTyping(*event) || m_search->hasFocus())
        return SectionPage::keyPressEvent(event);
    m_search->setFocus();
    QCoreApplication::sendEvent(m_search, event);
}

void ContactListView::showEvent(QShowEvent *event) {
    SectionPage::showEvent(event);
    if (!event->spontaneous())
        m_rows->setFocus();
}

void ContactListView::render() {
    renderContent();
    renderSheet();
}

void ContactListView::renderContent() {
    const auto placeholder = m_state->placeholder();
    if (placeholder) {
        m_placeholder->setTexts(*placeholder);
        m_placeholder->setButton(m_state->contacts->empty() ? tr("Add Contact") : QString());
    }
    m_stack->setCurrentWidget(placeholder ? static_cast<QWidget *>(m_placeholder) : m_rows);
}

void ContactListView::renderSheet() {
    const bool isWanted = m_state->editingContact.get() || m_state->showAdd;
    const bool isOpen = m_sheet && m_sheet->isVisible();
    if (isOpen && !isWanted)
        m_sheet->close();
    else if (isWanted && !isOpen)
        openSheet(m_state->editingContact.get() ? ContactSheet::Purpose::edit : ContactSheet::Purpose::add);
}

void ContactListView::openSheet(ContactSheet::Purpose purpose) {
    m_sheet = new ContactSheet(purpose, m_state, this);
    m_sheet->open();
}
