#include "demo/Conversation.h"
#include "demo/content/DemoThemes.h"

namespace {
const DemoPerson &dana = People::dana, &ilias = People::ilias, &marta = People::marta, &tobias = People::tobias,
                 &priya = People::priya, &henk = People::henk, &rosalind = People::rosalind, &yusra = People::yusra,
                 &quentin = People::quentin;

Conversation breakwater() {
    return {
        "South breakwater: settlement at chainage 340",
        {ilias, dana, rosalind},
        {{rosalind, daysAgo(64, 9, 12), R"(Dear Dana,

The crest of the south breakwater has gone down visibly near the old lamp post.
Our pilot says "a hand's breadth". Could you measure it before the equinox?

Kind regards,
Rosalind
)"},
         {dana, daysAgo(64, 10, 0), R"(Dear Rosalind,

Ilias will be there on Tuesday with the level and two prisms. Please keep the
public off the crest until then.
)"},
         {ilias, daysAgo(60, 16, 44), R"(Dear both,

it is 84 mm over eleven metres, so the pilot has small hands. The armour is
intact; the core has washed out below it. A hundred cubic metres of stone
from above will do for this winter, a filter layer for good.

Drawing follows.
)"},
         {rosalind, daysAgo(59, 8, 30), R"(Thank you both. I have the stone ordered and the lamp post roped off, much to
the sorrow of the anglers.

Rosalind
)"},
         {dana, daysAgo(40, 14, 2), R"(Dear Rosalind,

the stone is in. We levelled it again today: two millimetres in ten days, which
is the stone finding its place. We'll look again after the first real storm.
)"}},
        DemoFolder::projects};
}

Conversation tender() {
    return {"Tender documents, inner basin",
            {quentin, dana},
            {{quentin, daysAgo(88, 10, 10), R"(Dear Dana,

Please find below the questions of the bidders, numbers 1 to 3.

1. Is night work allowed?
2. May the spoil be dried on the north quay?
3. Who pays for the pilot?

Regards,
Quentin
)"},
             {dana, daysAgo(87, 8, 55), R"(Dear Quentin,

1. Until ten in the evening.
2. Yes, behind the white line.
3. The contractor.

I would add that the eelgrass beds are marked with yellow buoys and that every
bidder should go and see them at low water.
)"},
             {quentin, daysAgo(87, 15, 31), R"(Published as you wrote them. The buoys have caused some excitement.

Quentin
)"}},
            DemoFolder::projects};
}

Conversation firstData() {
    return {
        "First light: the Merrow gauge is on line",
        {priya, dana, tobias, henk},
        {{priya, daysAgo(402, 6, 1), R"(Everybody,

at 05:48 UTC the first reading from the new gauge arrived on the server:
2.914 metres. I have framed the log line.
)"},
         {henk, daysAgo(402, 6, 30), R"(And I was standing next to it with a stick: 2.91. Wet to the knee, very happy.
)"},
         {dana, daysAgo(402, 7, 15), R"(Three years of forms, and there it is. Well done, all of you. Cake at four.
)"},
         {tobias, daysAgo(402, 7, 20), R"(The public page has had eleven visitors. Nine of them are us.
)"}},
        DemoFolder::archive};
}

Conversation lease() {
    const DemoPerson landlord{"Speicherhof Verwaltung", "verwaltung@speicherhof.example", 60, WritingStyle::Office,
                              "Speicherhof Verwaltung\nFrau Dierksen"};
    return {"Mietvertrag Speicherhof 9, 2. OG",
            {landlord, dana},
            {{landlord, daysAgo(371, 9, 0), R"(Sehr geehrte Frau Okafor,

anbei erhalten Sie den Entwurf der Verlängerung um drei Jahre. Die Miete bleibt
unverändert, der Fahrradkeller kommt ohne Aufpreis dazu.

Mit freundlichen Grüßen
B. Dierksen
)"},
             {dana, daysAgo(370, 11, 20), R"(Sehr geehrte Frau Dierksen,

das freut uns sehr, besonders der Keller. Wir unterschreiben gern; bitte
schicken Sie uns zwei Exemplare.

Viele Grüße
Dana Okafor
)"},
             {landlord, daysAgo(366, 8, 40), R"(Sehr geehrte Frau Okafor,

die Exemplare sind heute mit der Post unterwegs.

Mit freundlichen Grüßen
B. Dierksen
)"}},
            DemoFolder::archive};
}

Conversation conference() {
    return {"Coastal data days: our abstract",
            {marta, dana, yusra},
            {{marta, daysAgo(210, 12, 0), R"(Abstract, 150 words, deadline tonight. Title so far: "What a gull taught us
about redundancy". Too cheerful?
)"},
             {yusra, daysAgo(210, 12, 9), R"(Not cheerful enough for the evening session, just right for the morning.
)"},
             {dana, daysAgo(210, 13, 30), R"(Keep it. Please say in the first sentence that the data are open and in the
last one where they are, and leave the gull the middle.
)"},
             {marta, daysAgo(209, 6, 45), R"(Submitted at 23:58. The gull has the middle.
)"},
             {marta, daysAgo(160, 9, 10), R"(Accepted, morning session, twenty minutes!
)",
              "F", "Fwd: "}},
            DemoFolder::archive};
}

Conversation beachClean() {
    const DemoPerson organiser{"Pola Nkemelu", "pola@cleanstrand.example", 60, WritingStyle::Flowed, "Pola"};
    return {"Beach clean: numbers from the spring tide",
            {organiser, dana},
            {{organiser, daysAgo(33, 17, 40), R"(Hello Dana,

thank you for telling us about the very low water, we could get at the wreck of
the old pontoon at last. 61 people, 340 kg, of which 210 kg rope.

May we use your tide curve on our poster for the next one?
)"},
             {dana, daysAgo(33, 18, 2), R"(Hello Pola,

340 kilos! Of course, it is open data, you need not even ask. The next water as
low as that comes on the 12th, a Saturday for once.
)"},
             {organiser, daysAgo(32, 9, 15), R"(Then the 12th it is. I'll bring the big scales.
)"}},
            DemoFolder::coast};
}

Conversation forwardedAlarm() {
    return {
        "Storm surge warning: please check the pumps",
        {henk, dana, ilias},
        {{rosalind,
          daysAgo(27, 18, 22),
          R"(All,

The surge is forecast for 02:00, 1.1 m above the tables. The pumps in the old
lock must be ready by midnight.

Rosalind
)",
          "",
          "Fwd: ",
          "",
          {dana}},
         {dana,
          daysAgo(27, 18, 30),
          R"(Henk, can you? The second pump was slow to start last time.
)",
          "",
          "Fwd: Fwd: ",
          "",
          {henk}},
         {henk, daysAgo(27, 19, 50), R"(Both running, second one after a word and a hammer. I'll stay until the water
turns.
)",
          "", "RE: Fwd: Fwd: "},
         {ilias, daysAgo(26, 3, 15), R"(Peak was 1.04 m above the tables at 02:20. The lock stayed dry. Henk is asleep
in the van, do not call him before noon.
)",
          "F", "Re: RE: Fwd: Fwd: "}},
        DemoFolder::coast};
}

Conversation oldHoliday() {
    return {
        "The cottage in August",
        {People::kelechi, dana, People::amara},
        {{People::kelechi, daysAgo(118, 20, 5),
          R"(The cottage is free from the 8th to the 22nd. Six beds, one shower, no signal.
The owner says there is a tide table on the fridge, so Dana can relax.
)"},
         {People::amara, daysAgo(118, 21, 0), R"(We take the first week. I'd like the bed that is not under the stairs.
)"},
         {dana, daysAgo(117, 7, 10), R"(Second week for us. I have looked at the tide table on the fridge in the photo:
it is from another year, and another sea.
)"},
         {People::kelechi, daysAgo(117, 14, 22), R"(I knew you would look.
)"}},
        DemoFolder::archive};
}
} // namespace

void addArchivedThreads(Mailbag &bag) {
    for (const Conversation &conversation :
         {breakwater(), tender(), firstData(), lease(), conference(), beachClean(), forwardedAlarm(), oldHoliday()})
        addConversation(bag, conversation);
}
