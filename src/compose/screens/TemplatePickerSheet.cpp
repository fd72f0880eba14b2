#include "compose/screens/TemplatePickerSheet.h"

#include "compose/screens/TemplateRowDelegate.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/EmptyStateView.h"

#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize preferredSize(480, 420);

} // namespace

TemplatePickerSheet::TemplatePickerSheet(std::shared_ptr<ComposeState> state, QWidget *parent)
    : Sheet(tr("Quick Reply Templates"), {}, parent)
    , m_state(std::move(state))
    , m_templates(m_state->templates) {
    setAttribute(Qt::WA_DeleteOnClose);
    resize(preferredSize);
    setSizeGripEnabled(true);
    column()->addWidget(m_templates.empty() ? makeEmptyState() : makeList(), 1);
    auto *close = new IconButton(u"xmark.circle.fill"_s, tr("Close (Esc)"));
    addHeaderButton(close);
    connect(close, &IconButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, m_state.get(), [state = m_state.get()] { state->showTemplatePicker = false; });
}

QWidget *TemplatePickerSheet::makeEmptyState() const {
    return new EmptyStateView({u"doc.on.doc"_s, tr("No templates"), tr("Create quick reply templates in the sidebar")});
}

QWidget *TemplatePickerSheet::makeList() {
    auto *list = new QListWidget;
    list->setAccessibleName(windowTitle());
    list->setItemDelegate(new TemplateRowDelegate(list));
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    for (const auto &one : m_templates)
        list->addItem(templateItem(one));
    list->setCurrentRow(0);
    const auto pick = [this, list] {
        const auto chosen = m_templates.at(std::size_t(list->currentRow()));
        m_state->pickTemplate(chosen);
        accept();
    };
    connect(list, &QListWidget::itemClicked, this, pick);
    connect(list, &QListWidget::itemActivated, this, pick);
    list->setFocus();
    return list;
}
