#include "BlockWatch.h"
#include "Chapters.h"
#include "MessageReader.h"
#include "Report.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int messages = 30;

} // namespace

void measureMessages(AppDriver &driver) {
    MessageReader reader(driver);
    Series plain, html, block;
    reader.startAt(messages);
    BlockWatch::restart();
    for (int opened = 0; opened < messages; ++opened) {
        const auto time = reader.openNext();
        (reader.showsPage() ? html : plain).add(time);
    }
    block.add(BlockWatch::longest());
    Report::add(u"Message in plain text, key press to painted"_s, plain, u"ms"_s, {40});
    Report::add(u"Message of 20 KB of HTML, key press to painted"_s, html, u"ms"_s, {80});
    Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
}
