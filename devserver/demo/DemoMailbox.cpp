#include "demo/DemoMailbox.h"

#include <algorithm>

#include "demo/MaildirWriter.h"
#include "demo/content/DemoThemes.h"

namespace {
std::vector<DemoMessage> demoMessages(std::chrono::system_clock::time_point now) {
    Mailbag bag(now);
    for (const auto addTheme : {addHarbourThreads, addOfficeThreads, addFamilyThreads, addArchivedThreads,
                                addNewsletters, addReceipts, addServiceNotes, addLanguages, addAttachments,
                                addInvitations, addMachineMail, addBrokenMail, addExtremeMail, addJunkMail, addOwnMail})
        addTheme(bag);
    return bag.messages();
}
} // namespace

void generateDemoMailbox(const std::filesystem::path &maildir, std::chrono::system_clock::time_point now) {
    std::vector<DemoMessage> messages = demoMessages(now);
    std::stable_sort(messages.begin(), messages.end(), [](const auto &a, const auto &b) { return a.date < b.date; });

    MaildirWriter writer(maildir);
    for (const std::string &folder : DemoFolder::all())
        writer.createFolder(folder);
    for (const DemoMessage &message : messages)
        writer.write(message);
}
