#pragma once

#include "compose/ComposeState.h"
#include "ui/screens/Sheet.h"

/// The account's templates, of which one can be taken into the message.
class TemplatePickerSheet final : public Sheet {
    Q_OBJECT
public:
    TemplatePickerSheet(std::shared_ptr<ComposeState> state, QWidget *parent);

private:
    QWidget *makeList();
    QWidget *makeEmptyState() const;
    void pick(const QModelIndex &index);

    std::shared_ptr<ComposeState> m_state;
    const std::vector<EmailTemplate> m_templates;
};
