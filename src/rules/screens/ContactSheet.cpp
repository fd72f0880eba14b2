#include "rules/screens/ContactSheet.h"

#include "ui/screens/FormField.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualWidth = 400;

} // namespace

struct ContactSheet::Form {
    QString title, saveText;
    Published<QString> ContactListState::*email, ContactListState::*name;
    bool (ContactListState::*canSave)() const;
    void (ContactListState::*save)();
    void (ContactListState::*close)();
};

const ContactSheet::Form &ContactSheet::formFor(Purpose purpose) {
    using State = ContactListState;
    static const Form add{u"Add Contact"_s, u"Add"_s,    &State::newEmail,    &State::newName,
                          &State::canAdd,   &State::add, &State::cancelAdding};
    static const Form edit{u"Edit Contact"_s, u"Save"_s,    &State::editEmail,    &State::editName,
                           &State::canSave,   &State::save, &State::cancelEditing};
    return purpose == Purpose::add ? add : edit;
}

ContactSheet::ContactSheet(Purpose purpose, std::shared_ptr<ContactListState> state, QWidget *parent)
    : Sheet(formFor(purpose).title, {}, parent)
    , m_form(formFor(purpose))
    , m_state(std::move(state)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(usualWidth);
    addField(tr("Email"), (*m_state).*m_form.email);
    addField(tr("Name"), (*m_state).*m_form.name);
    connect(addButton(tr("Cancel")), &QPushButton::clicked, this, &QDialog::reject);
    m_save = addButton(m_form.saveText, ButtonRole::primary);
    connect(m_save, &QPushButton::clicked, m_state.get(), m_form.save);
    connect(this, &QDialog::finished, m_state.get(), m_form.close);
    observe(m_state.get(), this, &ContactSheet::render);
}

void ContactSheet::addField(const QString &label, Published<QString> &text) {
    auto *field = new FormField(label);
    field->setText(text);
    connect(field, &FormField::textEdited, m_state.get(), [&text](const QString &typed) { text = typed; });
    column()->addWidget(field);
}

void ContactSheet::render() {
    m_save->setEnabled(((*m_state).*m_form.canSave)());
}
