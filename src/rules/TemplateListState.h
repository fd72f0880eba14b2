#pragma once

#include "platform/ObservableObject.h"
#include "platform/Tasks.h"
#include "rules/EmailTemplate.h"
#include "ui/ListRow.h"
#include "ui/RowActions.h"

/// What the templates screen decides: the templates it shows, and the sheet that adds one.
class TemplateListState : public ObservableObject, public std::enable_shared_from_this<TemplateListState> {
    Q_OBJECT
public:
    /// Reads the templates at once.
    static std::shared_ptr<TemplateListState> make();

    Published<std::vector<EmailTemplate>> templates{this};

    /// The sheet for a new template is up. What was typed into it stays until it is sent.
    Published<bool> showCreate{this, false};
    Published<QString> newName{this}, newSubject{this}, newBody{this};

    /// The rows of `templates`; follow its changes in the next turn of the event loop.
    ListRowModel rows;

    RowActions actions(const QString &id);

    void reload();
    bool canCreate() const;
    void create();
    void remove(const QString &id);

private:
    TemplateListState() = default;

    void renewRows();
    QCoro::Task<> load();
    QCoro::Task<> sendNew();
    QCoro::Task<> sendRemoval(QString id);

    /// Only the newest load may write.
    int m_loadID = 0;
    /// A template is on its way to the server: pressing the button again must not send it twice.
    Published<bool> m_isSending{this, false};
};
