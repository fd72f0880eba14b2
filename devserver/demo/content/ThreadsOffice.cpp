#include "demo/Conversation.h"
#include "demo/content/DemoThemes.h"

namespace {
const DemoPerson &dana = People::dana, &ilias = People::ilias, &marta = People::marta, &tobias = People::tobias,
                 &priya = People::priya, &sunniva = People::sunniva, &henk = People::henk, &yusra = People::yusra;

Conversation standup() {
    return {"Where is everybody on Wednesday?",
            {sunniva, dana, ilias, marta, tobias, henk},
            {{sunniva, daysAgo(3, 8, 5), R"(Hello all,

the heating people come on Wednesday between eight and noon and somebody has
to let them into the server cupboard. I am at the dentist. Who is in?
)"},
             {tobias, daysAgo(3, 8, 9), R"(I'm in from nine. Before nine they can have the view of the courtyard.
)"},
             {henk, daysAgo(3, 8, 31), R"(On the boat all day.
)"},
             {dana, daysAgo(3, 8, 40), R"(I can be there at half past seven, I have a call with Priya anyway. Tobias,
you take over at nine?
)"},
             {tobias, daysAgo(3, 8, 41), R"(Deal. I'll bring the good rolls.
)"},
             {sunniva, daysAgo(3, 9, 0), R"(You are wonderful. The key is in the blue tin, next to the tea that nobody
drinks.
)"}}};
}

Conversation release() {
    return {
        "Tide API 2.3: release on Thursday?",
        {priya, dana, tobias},
        {{priya, daysAgo(1, 4, 35), R"(Hi both,

2.3 is ready from my side:

- predictions for 14 days instead of 7
- gzip on every endpoint, which cuts the traffic to about a fifth
- the station list now says when a gauge was last levelled

Left to do: the changelog, and the old CSV export still rounds to decimetres.
Is Thursday all right, or do we keep our promise of never releasing before a
spring tide?
)"},
         {tobias, daysAgo(1, 8, 15), R"(The CSV thing is one line, I'll do it today. On Thursday the highest water is
at 23:10, so if we roll out in the morning, there is a whole day to notice.
)"},
         {dana, daysAgo(1, 9, 2), R"(Thursday morning it is. Priya, please send the changelog to Yusra first, her
harbour app is the biggest reader of the CSV and she should not be surprised.
)"},
         {priya, hoursAgo(2, 8), R"(Sent to Yusra, and the release candidate is on the staging server. Could one
of you click through the station pages on a phone? My screen makes everything
look good.
)",
          "u"},
         {tobias, hoursAgo(1, 34), R"(Clicked. One thing: the chart legend overlaps the last hour on narrow screens.
Fixed, rebuilt, looks good now even on my ancient telephone.
)",
          "u"}}};
}

Conversation csvRounding() {
    return {"Rounding in the CSV export",
            {yusra, dana, tobias},
            {{yusra, daysAgo(9, 11, 20), R"(Dear Tide people,

a small question. Your JSON says 3.47 m for Merrow yesterday at noon, and the
CSV says 3.5. Our users compare the two and then write to me. Which one should
I tell them to believe?
)"},
             {dana, daysAgo(9, 12, 44), R"(Hello Yusra,

believe the JSON. The CSV was made for a spreadsheet that could not do better,
in a year when nobody would ask. We will change it with 2.3; I'll let you know
before it goes out.
)"},
             {yusra, daysAgo(9, 13, 1), R"(Wonderful, thank you. I'll keep the apology in my drafts until then.
)"}}};
}

Conversation interns() {
    return {
        "Summer student: two candidates",
        {marta, dana, ilias},
        {{marta, daysAgo(12, 13, 10), R"(We have two strong applications for the summer. One has written a wave model
in a language I had to look up, the other repaired her family's trawler last
winter and knows what a fender is.

Can we take both?
)"},
         {ilias, daysAgo(12, 13, 55), R"(The trawler one for me, please, before somebody else hires her.
)"},
         {dana, daysAgo(12, 15, 30), R"(I have moved things around in the budget and we can take both, ten weeks
each, if one of them starts in June and the other in July.

Marta, would you write to them? They should hear it from the person who will
be answering their questions.
)"},
         {marta, daysAgo(11, 9, 14), R"(Both said yes within the hour. One of them asked whether there will be boats.
I said that there will be boats.
)"}}};
}

Conversation coffee() {
    return {
        "The coffee machine",
        {tobias, dana, sunniva, ilias, marta},
        {{tobias, daysAgo(5, 7, 50), R"(Friends, the coffee machine shows E-14 and makes the sound of a small harbour
crane. I have read the manual: E-14 is "consult the manual".
)"},
         {ilias, daysAgo(5, 7, 58), R"(E-14 is a jammed grinder. Unplug it, take the hopper off, look for a pebble.
)"},
         {tobias, daysAgo(5, 8, 20), R"(It was a pebble. How did you know?
)"},
         {ilias, daysAgo(5, 8, 22), R"(It is always a pebble.
)"},
         {sunniva, daysAgo(5, 8, 30), R"(I have ordered beans from somebody else.
)"},
         {marta, daysAgo(5, 8, 33), R"(The pebble is on my desk if anybody wants to see it. Granite, I'd say.
)"},
         {dana, daysAgo(5, 9, 1), R"(Please log it with the gull.
)"}}};
}

Conversation talk() {
    return {"Invitation: open data evening at the Merrow library",
            {DemoPerson{"Imogen Vale", "imogen.vale@merrowlibrary.example", 0, WritingStyle::Office,
                        "Imogen Vale\nEvents, Merrow Public Library"},
             dana},
            {{DemoPerson{"Imogen Vale", "imogen.vale@merrowlibrary.example", 0, WritingStyle::Office,
                         "Imogen Vale\nEvents, Merrow Public Library"},
              daysAgo(8, 10, 45), R"(Dear Ms Okafor,

Our winter series is about the town and its water, and many people have asked
where the numbers on the tide board at the slipway come from. Would you be
willing to tell them? Forty minutes, tea afterwards, and a projector that
works most of the time.

We had the first Tuesday of next month in mind.

Yours sincerely,
Imogen Vale
)"},
             {dana, daysAgo(8, 16, 20), R"(Dear Imogen,

I'd love to, and I'll bring one of the old floats so that people have something
to pass around. The first Tuesday is fine.

Is it all right if the evening is for children too? They ask the best questions.
)"},
             {DemoPerson{"Imogen Vale", "imogen.vale@merrowlibrary.example", 0, WritingStyle::Office,
                         "Imogen Vale\nEvents, Merrow Public Library"},
              hoursAgo(6, 40), R"(Dear Dana,

Children are very welcome; we shall put out the low chairs. The poster is at
the printer's, I'll send you the proof tomorrow.

Yours,
Imogen
)",
              "u"}}};
}

Conversation expenses() {
    return {
        "Expenses: two receipts are missing",
        {sunniva, dana},
        {{sunniva, daysAgo(15, 9, 40), R"(Dana, I am missing two receipts from you: the ferry on the 9th and something
called "Knots & Co., 18.40".
)"},
         {dana, daysAgo(15, 10, 5), R"(The ferry one is in my coat. Knots & Co. is rope for the demonstration model,
not a hobby. I'll put both on your desk.
)"},
         {sunniva, daysAgo(15, 10, 7), R"(Thank you. I believed you about the rope.
)"}}};
}
} // namespace

void addOfficeThreads(Mailbag &bag) {
    for (const Conversation &conversation :
         {standup(), release(), csvRounding(), interns(), coffee(), talk(), expenses()})
        addConversation(bag, conversation);
}
