#include "demo/Conversation.h"
#include "demo/content/DemoThemes.h"

namespace {
const DemoPerson &dana = People::dana, &ilias = People::ilias, &marta = People::marta, &priya = People::priya,
                 &rosalind = People::rosalind, &anselm = People::anselm, &henk = People::henk;

Conversation fenderPanels() {
    return {"Fender panels at Berth 4",
            {ilias, dana, marta},
            {{ilias, daysAgo(2, 8, 12), R"(Morning both,

I was out at Berth 4 with the inspection boat yesterday. Panels 11 to 14
are worse than the report says: the chain on 12 has gone at the upper
shackle and the facing on 13 is worn through to the steel. Nothing falls
into the water tomorrow, but I would not put the ferry against them in a
south-westerly.

Could we look at the berthing energies again before we tell Rosalind?
)"},
             {dana, daysAgo(2, 8, 47), R"(Thanks Ilias, that is worse than I hoped.

Marta, do you still have the approach speeds from the spring survey? If we
can show that the pilots really come in below 0.15 m/s, we may get away with
replacing four panels instead of the whole row.
)"},
             {marta, daysAgo(2, 10, 5), R"(I do. 212 approaches, median 0.11 m/s, 95th percentile 0.16. The three
outliers above 0.2 are all the same evening, when the bow thruster of the
ferry was out of service.

I'll run the energies tonight with the new hull data and send a table.
)"},
             {ilias, daysAgo(2, 10, 31), R"(Perfect. Please use the corroded section for the brackets, I measured 9 mm
left of the original 14.
)"},
             {marta, daysAgo(1, 7, 20), R"(Done. With 9 mm brackets the row is fine up to 0.17 m/s, so four panels and
two brackets will do, as long as the harbour master keeps the speed limit
for the approach in place until spring.

- panel 11: replace chain
- panel 12: replace panel and both shackles
- panel 13: replace panel and bracket
- panel 14: replace facing and bracket
)",
              "F"},
             {dana, daysAgo(1, 8, 2), R"(Brilliant, thank you. I'll put it into two paragraphs for Rosalind and ask
Nordkai for a price for the brackets.
)"},
             {ilias, minutesAgo(52), R"(One more thing, I found the old shop drawings in the archive: the brackets
were galvanised, not painted. Please have Nordkai quote for galvanised too,
otherwise we will be back out there in four years.
)",
              "u"}}};
}

Conversation harbourMaster() {
    return {"Berth 4: condition of fenders and proposed repair",
            {rosalind, dana},
            {{dana, daysAgo(1, 8, 40), R"(Dear Rosalind,

our inspection of Berth 4 found four fender panels that should not go
through the winter as they are. The row as a whole is sound. We propose to
replace panels 12 and 13, the chain of 11 and the facing of 14, together with
two brackets; the work takes two days and can be done between ferries.

Until then we recommend keeping the approach speed below 0.15 m/s.

I can come by on Thursday to walk the berth with you, if that helps.
)"},
             {rosalind, hoursAgo(3, 25), R"(Dear Dana,

Thank you for being so quick. I have extended the speed limit to the end of
March and told the ferry operator this morning; they were not delighted, but
they understood.

Thursday at ten suits me. Please bring boots, the lower landing is slippery,
and the photographs of panel 12 for our insurers.

Kind regards,
Rosalind
)",
              "uF"}}};
}

Conversation bracketQuote() {
    return {"Anfrage: Konsolen für Fender, Liegeplatz 4",
            {anselm, dana},
            {{dana, daysAgo(1, 9, 15), R"(Guten Morgen Herr Krüger,

wir brauchen für den Hafen Merrow zwei Fenderkonsolen nach der beiliegenden
Zeichnung, S355, 14 mm. Bitte bieten Sie uns beide Ausführungen an, einmal
beschichtet und einmal feuerverzinkt.

Liefern müssten Sie bis Ende nächsten Monats.

Viele Grüße
Dana Okafor
)"},
             {anselm, hoursAgo(5, 10), R"(Sehr geehrte Frau Okafor,

vielen Dank für Ihre Anfrage. Beide Ausführungen sind möglich:

- beschichtet: 1.480 EUR je Stück
- feuerverzinkt: 1.735 EUR je Stück

Die Verzinkerei hat derzeit drei Wochen Vorlauf. Wenn Sie bis Freitag
bestellen, schaffen wir Ihren Termin bequem.

Mit freundlichen Grüßen
Anselm Krüger
)",
              "u"}}};
}

Conversation gaugeOutage() {
    return {"Gauge 7 has been silent since 02:40",
            {priya, dana, henk},
            {{priya, daysAgo(6, 5, 10), R"(Hi Dana, hi Henk,

gauge 7 (Merrow outer mole) stopped reporting at 02:40 UTC. The modem answers
but the logger does not. The public feed shows the forecast instead, with the
flag that says so, so nobody is being lied to.

Henk, are you anywhere near it this week?
)"},
             {henk, daysAgo(6, 6, 45), R"(I can be there at low water, 13:20. Last time it was the gull that nests on
the solar panel. I am not joking: she has pulled the cable out twice.
)"},
             {dana, daysAgo(6, 7, 2), R"(Please take the spare logger with you, and a photo of the gull.
)"},
             {henk, daysAgo(6, 14, 38), R"(It was the gull.

Cable replaced, clamped in two places and put into steel conduit. Readings
came back at 13:52 and agree with the staff gauge to a centimetre.
)"},
             {priya, daysAgo(6, 15, 5), R"(Confirmed, feed is green again. I have backfilled the gap from the logger's
own memory; eleven hours, nothing lost.

The gull deserves a line in the incident log.
)"}},
            DemoFolder::harbour};
}

Conversation dredging() {
    return {
        "Dredging window and the eelgrass survey",
        {People::quentin, dana, People::olive},
        {{People::quentin, daysAgo(19, 9, 30), R"(Dear Dana,

The committee has approved the maintenance dredging for the inner basin on
condition that the eelgrass is surveyed beforehand. Is the Co-op able to do
this before the end of the month?

Regards,
Quentin Abara
)"},
         {dana, daysAgo(19, 10, 14), R"(Dear Quentin,

good news about the approval. I am copying Olive, who knows every blade of
grass in that basin.

Olive, would two days with the drop camera be enough?
)"},
         {People::olive, daysAgo(18, 15, 50), R"(Two days is plenty if the visibility holds. We could start on the 24th,
tides are kind that week: low water springs just after breakfast.

We'd tow three transects along the east wall, where the beds were in
last year's survey, and one along the ferry channel for comparison.
)"},
         {People::quentin, daysAgo(17, 8, 58),
          R"(Thank you both. The 24th is fine with us. I shall need the results as a map
and as a table; the committee likes tables.

Regards,
Quentin
)"},
         {dana, daysAgo(17, 9, 20), R"(You will have both, and the raw tracks as open data.
)"},
         {People::olive, daysAgo(4, 18, 12),
          R"(Survey finished, one day lost to fog. The beds on the east wall have grown
by about a fifth, and there is a small new patch at the foot of the slip
that was not there last year. Lovely to see.

Map and table follow on Monday, I want to check the positions first.
)"}},
        DemoFolder::harbour};
}
} // namespace

void addHarbourThreads(Mailbag &bag) {
    for (const Conversation &conversation :
         {fenderPanels(), harbourMaster(), bracketQuote(), gaugeOutage(), dredging()})
        addConversation(bag, conversation);
}
