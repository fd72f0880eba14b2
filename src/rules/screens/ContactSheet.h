#pragma once

#include "rules/ContactListState.h"
#include "ui/screens/Sheet.h"

class FormField;

/// Asks for the address and the name of a contact; what is typed lands in the state at once.
class ContactSheet final : public Sheet {
    Q_OBJECT
public:
    enum class Purpose { add, edit };

    ContactSheet(Purpose purpose, std::shared_ptr<ContactListState> state, QWidget *parent);

private:
    /// The two purposes differ in words and in the state's fields alone.
    struct Form;
    static const Form &formFor(Purpose purpose);

    void addField(const QString &label, Published<QString> &text);
    void render();

    const Form &m_form;
    std::shared_ptr<ContactListState> m_state;
    QPushButton *m_save;
};
