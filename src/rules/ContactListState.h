#pragma once

#include "platform/ObservableObject.h"
#include "platform/Tasks.h"
#include "rules/Contact.h"
#include "ui/ListRow.h"
#include "ui/RowActions.h"
#include "ui/ViewTexts.h"

#include <QSet>

/// What the contacts screen decides: which contacts it shows, and the sheets that add and change one.
class ContactListState : public ObservableObject, public std::enable_shared_from_this<ContactListState> {
    Q_OBJECT
public:
    /// Reads the contacts at once.
    static std::shared_ptr<ContactListState> make();

    Published<std::vector<Contact>> contacts{this};
    Published<QString> searchQuery{this};

    /// The sheet for a new contact is up. What was typed into it stays until it is sent.
    Published<bool> showAdd{this, false};
    Published<QString> newEmail{this}, newName{this};

    /// The contact whose sheet is up.
    Published<std::optional<Contact>> editingContact{this};
    Published<QString> editEmail{this}, editName{this};

    /// The contacts that `searchQuery` finds; follow its changes in the next turn of the event loop.
    ListRowModel rows;

    /// What to show in place of rows when it is known that there are none; nothing after a load that failed.
    std::optional<ViewTexts> placeholder() const;
    RowActions actions(const QString &id);

    void reload();
    bool canAdd() const;
    void add();
    void cancelAdding() { showAdd = false; }
    void startEditing(const QString &id);
    bool canSave() const;
    void save();
    void cancelEditing() { editingContact = std::nullopt; }
    /// Takes the contact away at once; it comes back when the server refuses.
    void remove(const QString &id);

private:
    ContactListState() = default;

    void renewRows();
    QCoro::Task<> load();
    QCoro::Task<> sendNew();
    QCoro::Task<> sendEdited(QString id);
    QCoro::Task<> sendRemoval(QString id);

    /// Only the newest load may write.
    int m_loadID = 0;
    /// The first load has ended.
    Published<bool> m_hasLoaded{this, false};
    /// Why the last load failed.
    Published<std::optional<QString>> m_failure{this};
    /// What is on its way to the server: pressing the button again must not send it twice.
    Published<bool> m_isAdding{this, false};
    Published<QSet<QString>> m_savedIDs{this};
    /// A list that was read meanwhile must not bring these back.
    QSet<QString> m_removedIDs;
};
