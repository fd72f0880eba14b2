#include "demo/Conversation.h"
#include "demo/content/DemoThemes.h"

namespace {
const DemoPerson &dana = People::dana, &mum = People::mum, &kelechi = People::kelechi, &amara = People::amara,
                 &bea = People::bea, &jonas = People::jonas;

Conversation birthday() {
    return {"Dad's seventieth 🎂",
            {amara, dana, kelechi},
            {{amara, daysAgo(4, 17, 30), R"(Right, conspirators. Seven weeks to go. He says he wants "nothing, really",
which as we know means a boat trip, jollof for thirty and a speech.

I'll do the speech. Who does what?
)"},
             {kelechi, daysAgo(4, 19, 12), R"(I'm landing on the Thursday with both kids, so I can cook on the Friday if
somebody finds me a pot that size. Tobi wants to play the trumpet. I have
said maybe.
)"},
             {dana, daysAgo(4, 20, 3), R"(Boat is mine. The harbour master owes me a favour and the old pilot cutter
takes forty. Pot: Mum's neighbour has one, from the wedding.

Trumpet on the foredeck, please, not below.
)"},
             {amara, daysAgo(3, 7, 15), R"(A pilot cutter!! He will cry before we are out of the harbour.

Who tells Mum?
)"},
             {kelechi, daysAgo(3, 13, 40), R"(Mum knows. Mum has known since September. She asked me yesterday what time
the boat leaves.
)"},
             {amara, hoursAgo(9, 5), R"(Of course she does. I've made a list and shared the work out so that each of
us can pretend it was all their idea:

- Dana: boat, flags, weather
- Kelechi: food, children, trumpet limits
- me: speech, cake, aunties
)"}}};
}

Conversation sunday() {
    return {"Sunday lunch",
            {mum, dana},
            {{mum, daysAgo(2, 16, 0), R"(My dear, are you coming on Sunday? Your father has bought a fish that is
longer than the oven. Bring Jonas if he eats fish. Bring a coat.
)"},
             {dana, daysAgo(2, 17, 22), R"(We are coming, both of us, and Jonas eats anything that is longer than an
oven. Shall I bring the big tin?
)"},
             {mum, minutesAgo(21), R"(Yes, the big tin, and the lemon squeezer you borrowed at Easter. Come at
twelve, not at one. Your father counts the minutes.
)",
              "u"}}};
}

Conversation roof() {
    return {"The roof at Cable Street",
            {bea, dana},
            {{bea, daysAgo(14, 11, 30), R"(Hi Dana,

had a look at your roof between two showers. The slates are fine, the flashing
round the chimney is not: whoever did it last used tape. I can do it properly
in lead in a day and a half, weather permitting.

I'd say 640 all in, and I'd take the old television aerial down while I'm up
there, no charge.
)"},
             {dana, daysAgo(14, 18, 10), R"(Hi Bea,

tape explains the stain in the hall. Yes please to all of it. Any weekday is
fine; the neighbour has the key.
)"},
             {bea, daysAgo(10, 15, 45), R"(All done. Dry as a biscuit. The aerial had a wren's nest in it, empty, so I
left the nest on your windowsill because it seemed a shame.
)",
              "F"},
             {dana, daysAgo(10, 19, 8), R"(It is on my desk now and everybody at work wants one. Thank you, Bea.
)"}}};
}

Conversation hike() {
    return {"Saturday: lighthouse or bog?",
            {jonas, dana},
            {{jonas, daysAgo(7, 18, 5), R"(Forecast for Saturday: dry until three, wind from the west, no midges.

Lighthouse path (11 km, cake at the end) or the bog boards (7 km, no cake,
but cranes)?
)"},
             {dana, daysAgo(7, 18, 30), R"(You know the answer. Which cake?
)"},
             {jonas, daysAgo(7, 18, 34), R"(Plum. I rang them.
)"}}};
}

Conversation choir() {
    return {"Choir: who still has the red folder?",
            {DemoPerson{"Winifred Osei", "winifred@quaysidesingers.example", 0, WritingStyle::Plain, "Winifred"}, dana},
            {{DemoPerson{"Winifred Osei", "winifred@quaysidesingers.example", 0, WritingStyle::Plain, "Winifred"},
              daysAgo(11, 19, 0), R"(Dear altos,

one red folder is missing, number 17. It has the carols in it and my pencil
marks, which took me eleven years. Please look under your beds.

Rehearsal on Thursday as usual, half past seven, bring a scarf because the
boiler is being the boiler.
)"},
             {dana, daysAgo(11, 20, 41), R"(Number 17 is here, in the bag with the shortbread tin. I am mortified. I'll
bring it on Thursday, with shortbread.
)"}}};
}

Conversation bikeSale() {
    return {"Is the blue bicycle still for sale?",
            {DemoPerson{"Leopold Quist", "leo.quist@postkahn.example", 60, WritingStyle::Rich, "Leo"}, dana},
            {{DemoPerson{"Leopold Quist", "leo.quist@postkahn.example", 60, WritingStyle::Rich, "Leo"},
              daysAgo(6, 18, 2), R"(Hello! I saw your card at the grocer's. Is the blue bicycle still there, and
would it suit somebody who is 1.88 m and not very gentle?
)"},
             {dana, daysAgo(6, 20, 15), R"(Hello Leo, it is still here, and it has survived me for nine years. The frame
is a 58, so you will be fine. Come and try it on Saturday morning if you like,
Cable Street 12, the green door.
)"},
             {DemoPerson{"Leopold Quist", "leo.quist@postkahn.example", 60, WritingStyle::Rich, "Leo"},
              daysAgo(5, 7, 48), R"(Saturday at ten? I'll bring the money and a pump.
)"},
             {dana, daysAgo(5, 8, 12), R"(Ten is good. I have a pump, but bring yours, mine is older than the bicycle.
)"}}};
}
} // namespace

void addFamilyThreads(Mailbag &bag) {
    for (const Conversation &conversation : {birthday(), sunday(), roof(), hike(), choir(), bikeSale()})
        addConversation(bag, conversation);
}
