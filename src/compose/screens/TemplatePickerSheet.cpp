#include "compose/screens/TemplatePickerSheet.h"

#include "rules/TemplateRow.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/ListRowDelegate.h"
#include "ui/screens/RowsView.h"

#include <QVBoxLayout>

#include <algorithm>

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
    auto *model = new ListRowModel(this);
    std::vector<ListRow> rows;
    std::ranges::transform(m_templates, std::back_inserter(rows), templateRowWithPreview);
    model->setRows(std::move(rows));
    auto *list = new RowsView(new ListRowDelegate(ListRowDelegate::Picture::none));
    list->setAccessibleName(windowTitle());
    list->setUniformItemSizes(false);
    list->setModel(model);
    list->setCurrentIndex(model->index(0, 0));
    connect(list, &QListView::clicked, this, &TemplatePickerSheet::pick);
    connect(list, &RowsView::openRequested, this, &TemplatePickerSheet::pick);
    list->setFocus();
    return list;
}

void TemplatePickerSheet::pick(const QModelIndex &index) {
    m_state->pickTemplate(m_templates[std::size_t(index.row())]);
    accept();
}
