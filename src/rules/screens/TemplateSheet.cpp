#include "rules/screens/TemplateSheet.h"

#include "ui/screens/FormField.h"
#include "ui/screens/TextAreaField.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize usualSize(480, 460);

} // namespace

TemplateSheet::TemplateSheet(std::shared_ptr<TemplateListState> state, QWidget *parent)
    : Sheet(tr("New Template"), {}, parent)
    , m_state(std::move(state)) {
    setAttribute(Qt::WA_DeleteOnClose);
    resize(usualSize);
    setSizeGripEnabled(true);
    addField(new FormField(tr("Template Name")), m_state->newName);
    addField(new FormField(tr("Subject")), m_state->newSubject);
    addField(new TextAreaField(tr("Body")), m_state->newBody);
    connect(addButton(tr("Cancel")), &QPushButton::clicked, this, &QDialog::reject);
    m_save = addButton(tr("Save"), ButtonRole::primary);
    connect(m_save, &QPushButton::clicked, m_state.get(), &TemplateListState::create);
    connect(this, &QDialog::finished, m_state.get(), [state = m_state.get()] { state->showCreate = false; });
    observe(m_state.get(), this, &TemplateSheet::render);
}

template <typename Field> void TemplateSheet::addField(Field *field, Published<QString> &text) {
    field->setText(text);
    connect(field, &Field::textEdited, m_state.get(), [&text](const QString &typed) { text = typed; });
    column()->addWidget(field);
}

void TemplateSheet::render() {
    m_save->setEnabled(m_state->canCreate());
}
