#include "rules/TemplateListState.h"

#include "rules/TemplateRow.h"
#include "rules/TemplateService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

std::shared_ptr<TemplateListState> TemplateListState::make() {
    std::shared_ptr<TemplateListState> state(new TemplateListState);
    connect(state.get(), &ObservableObject::changed, state.get(), &TemplateListState::renewRows);
    state->reload();
    return state;
}

void TemplateListState::renewRows() {
    std::vector<ListRow> shown;
    std::ranges::transform(*templates, std::back_inserter(shown), templateRow);
    rows.setRows(std::move(shown));
}

RowActions TemplateListState::actions(const QString &id) {
    const MenuEntry deletion{.text = u"Delete"_s,
                             .icon = u"trash"_s,
                             .perform = [self = shared_from_this(), id] { self->remove(id); },
                             .isDestructive = true};
    return {.trailing = {deletion}, .menu = {{deletion}}};
}

void TemplateListState::reload() {
    launch(load());
}

QCoro::Task<> TemplateListState::load() {
    const auto self = shared_from_this();
    const auto ticket = ++m_loadID;
    std::vector<EmailTemplate> loaded;
    try {
        const auto answer = co_await TemplateService::list();
        loaded = answer;
    } catch (const std::exception &) {
        // The list is then empty.
    }
    if (ticket == m_loadID)
        templates = std::move(loaded);
}

bool TemplateListState::canCreate() const {
    return !m_isSending && !newName->isEmpty();
}

void TemplateListState::create() {
    if (canCreate())
        launch(sendNew());
}

QCoro::Task<> TemplateListState::sendNew() {
    const auto self = shared_from_this();
    m_isSending = true;
    try {
        co_await TemplateService::create(newName, newSubject, newBody);
    } catch (const std::exception &) {
        // The list shows whether the template is there.
    }
    m_isSending = false;
    showCreate = false;
    newName = QString();
    newSubject = QString();
    newBody = QString();
    co_await load();
}

void TemplateListState::remove(const QString &id) {
    launch(sendRemoval(id));
}

QCoro::Task<> TemplateListState::sendRemoval(QString id) {
    const auto self = shared_from_this();
    try {
        co_await TemplateService::remove(id);
    } catch (const std::exception &) {
        // The row then stays.
    }
    co_await load();
}
