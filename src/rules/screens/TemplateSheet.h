#pragma once

#include "rules/TemplateListState.h"
#include "ui/screens/Sheet.h"

/// Asks for a new template; what is typed lands in the state at once.
class TemplateSheet final : public Sheet {
    Q_OBJECT
public:
    TemplateSheet(std::shared_ptr<TemplateListState> state, QWidget *parent);

private:
    template <typename Field> void addField(Field *field, Published<QString> &text);
    void render();

    std::shared_ptr<TemplateListState> m_state;
    QPushButton *m_save;
};
