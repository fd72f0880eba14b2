#include "rules/ContactListState.h"

#include "rules/ContactService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

ListRow contactRow(const Contact &contact) {
    const auto name = contact.name.value_or(QString()).trimmed();
    const auto frequency = contact.frequency.value_or(0);
    ListRow row{.id = contact._id, .title = name.isEmpty() ? contact.email : name};
    if (!name.isEmpty())
        row.detail = contact.email;
    if (frequency >= 1)
        row.count = QString::number(frequency);
    QStringList parts{row.title};
    if (!row.detail.isEmpty())
        parts.append(row.detail);
    if (!row.count.isEmpty())
        parts.append(frequency == 1 ? u"used once"_s : u"used %1 times"_s.arg(row.count));
    row.accessibleText = parts.join(u", "_s);
    return row;
}

} // namespace

std::shared_ptr<ContactListState> ContactListState::make() {
    std::shared_ptr<ContactListState> state(new ContactListState);
    connect(state.get(), &ObservableObject::changed, state.get(), &ContactListState::renewRows);
    state->reload();
    return state;
}

void ContactListState::renewRows() {
    std::vector<ListRow> shown;
    std::ranges::transform(contactsMatching(contacts, searchQuery), std::back_inserter(shown), contactRow);
    rows.setRows(std::move(shown));
}

std::optional<ViewTexts> ContactListState::placeholder() const {
    if (!m_hasLoaded || m_failure.get() || rows.rowCount() > 0)
        return std::nullopt;
    if (contacts->empty())
        return ViewTexts{u"person.crop.rectangle"_s, u"No contacts"_s, u"People you write to will appear here"_s};
    return ViewTexts{u"magnifyingglass"_s, u"No contact found"_s, u"No name or address contains what you typed"_s};
}

RowActions ContactListState::actions(const QString &id) {
    const auto self = shared_from_this();
    const MenuEntry deletion{
        .text = u"Delete"_s, .icon = u"trash"_s, .perform = [self, id] { self->remove(id); }, .isDestructive = true};
    const MenuEntry editing{.text = u"Edit"_s, .icon = u"pencil"_s, .perform = [self, id] { self->startEditing(id); }};
    return {.trailing = {deletion, editing}, .menu = {{editing}, {deletion}}};
}

void ContactListState::reload() {
    launch(load());
}

QCoro::Task<> ContactListState::load() {
    const auto self = shared_from_this();
    const auto ticket = ++m_loadID;
    std::vector<Contact> loaded;
    std::optional<QString> failure;
    try {
        const auto answer = co_await ContactService::list();
        loaded = answer;
    } catch (const std::exception &) {
        failure = errorText(std::current_exception());
    }
    if (ticket != m_loadID)
        co_return;
    std::erase_if(loaded, [this](const Contact &contact) { return m_removedIDs.contains(contact._id); });
    contacts = std::move(loaded);
    m_failure = std::move(failure);
    m_hasLoaded = true;
}

bool ContactListState::canAdd() const {
    return !m_isAdding && !newEmail->isEmpty();
}

void ContactListState::add() {
    if (canAdd())
        launch(sendNew());
}

QCoro::Task<> ContactListState::sendNew() {
    const auto self = shared_from_this();
    m_isAdding = true;
    try {
        co_await ContactService::add(newEmail, newName);
    } catch (const std::exception &) {
        // The list shows whether the contact is there.
    }
    m_isAdding = false;
    showAdd = false;
    newEmail = QString();
    newName = QString();
    co_await load();
}

void ContactListState::startEditing(const QString &id) {
    const auto contact = std::ranges::find(*contacts, id, &Contact::_id);
    if (contact == contacts->end())
        return;
    editEmail = contact->email;
    editName = contact->name.value_or(QString());
    editingContact = *contact;
}

bool ContactListState::canSave() const {
    const auto &contact = editingContact.get();
    return contact && !m_savedIDs->contains(contact->_id) && !editEmail->trimmed().isEmpty() &&
           editEmail->contains(u'@');
}

void ContactListState::save() {
    if (canSave())
        launch(sendEdited(editingContact.get()->_id));
}

QCoro::Task<> ContactListState::sendEdited(QString id) {
    const auto self = shared_from_this();
    m_savedIDs.modify([&](auto &ids) { ids.insert(id); });
    try {
        co_await ContactService::update(id, editEmail, editName);
    } catch (const std::exception &) {
        // The list shows what the server has.
    }
    m_savedIDs.modify([&](auto &ids) { ids.remove(id); });
    // Another one's sheet may be up by now.
    if (editingContact.get() && editingContact.get()->_id == id)
        editingContact = std::nullopt;
    co_await load();
}

void ContactListState::remove(const QString &id) {
    m_removedIDs.insert(id);
    contacts.modify(
        [&](auto &list) { std::erase_if(list, [&](const Contact &contact) { return contact._id == id; }); });
    launch(sendRemoval(id));
}

QCoro::Task<> ContactListState::sendRemoval(QString id) {
    const auto self = shared_from_this();
    try {
        co_await ContactService::remove(id);
        co_return;
    } catch (const std::exception &) {
        // What is not removed is shown again.
    }
    m_removedIDs.remove(id);
    co_await load();
}
