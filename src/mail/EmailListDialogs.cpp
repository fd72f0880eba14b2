#include "mail/EmailListDialogs.h"

using namespace Qt::StringLiterals;

EmailListDialog deleteDialog(const std::shared_ptr<EmailListActions> &actions, qint64 count) {
    return {
        .title = u"Move %1 email(s) to Trash?"_s.arg(count),
        .choices = {
            {.text = u"Move to Trash"_s, .perform = [actions] { actions->deleteSelected(); }, .isDestructive = true}}};
}

EmailListDialog spamDialog(const std::shared_ptr<EmailListActions> &actions, qint64 count) {
    const auto toggle = [actions] { actions->toggleSpamOfSelected(); };
    if (actions->isJunkFolder())
        return {.title = u"Mark %1 email(s) as Not Spam?"_s.arg(count),
                .choices = {{.text = u"Not Spam — Move to Inbox"_s, .perform = toggle}}};
    return {.title = u"Mark %1 email(s) as Spam?"_s.arg(count),
            .choices = {{.text = u"Mark as Spam"_s, .perform = toggle, .isDestructive = true}}};
}

EmailListDialog blockDialog(const std::shared_ptr<EmailListActions> &actions, qint64 count) {
    return {.title = u"Block sender(s) of %1 selected email(s)?"_s.arg(count),
            .message = u"Future emails from blocked senders are permanently deleted — they never reach your inbox or "
                       u"trash. The selected email(s) will also be permanently deleted."_s,
            .choices = {{.text = u"Block Sender(s) & Delete"_s,
                         .perform = [actions] { actions->blockSelected(false); },
                         .isDestructive = true},
                        {.text = u"Block Entire Domain(s) & Delete"_s,
                         .perform = [actions] { actions->blockSelected(true); },
                         .isDestructive = true}}};
}
