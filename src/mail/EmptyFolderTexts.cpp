#include "mail/EmptyFolderTexts.h"

#include <map>

using namespace Qt::StringLiterals;

ViewTexts emptyFolderTexts(const MailFolder &folder) {
    static const ViewTexts spam{u"exclamationmark.shield"_s, u"No spam"_s,
                                u"Messages marked as spam will appear here"_s};
    static const std::map<QString, ViewTexts> texts{
        {u"INBOX"_s, {u"tray"_s, u"Your inbox is empty"_s, u"Emails you receive will appear here"_s}},
        {u"__favorites"_s, {u"star"_s, u"No favorites"_s, u"Star emails to see them here"_s}},
        {u"Sent"_s, {u"paperplane"_s, u"No sent emails"_s, u"Messages you send will appear here"_s}},
        {u"Drafts"_s, {u"doc.text"_s, u"No drafts"_s, u"Emails you save as drafts will appear here"_s}},
        {u"Trash"_s, {u"trash"_s, u"Trash is empty"_s, u"Items you delete will appear here"_s}},
        {u"Spam"_s, spam},
        {u"Junk"_s, spam},
        {u"Archive"_s, {u"archivebox"_s, u"Archive is empty"_s, u"Archived emails will appear here"_s}}};
    for (const auto &key : {folder.path, folder.name})
        if (const auto found = texts.find(key); found != texts.end())
            return found->second;
    return {u"folder.fill"_s, u"This folder is empty"_s, u"No messages found"_s};
}
