#include "demo/People.h"

const DemoPerson People::dana{"Dana Okafor", "dana@corvanite.example", 60, WritingStyle::Rich,
                              "Dana Okafor\nCorvanite – harbour engineering and open tide data\n+49 555 0142 018"};
const DemoPerson People::ilias{"Ilias Brandt", "ilias@corvanite.example", 60, WritingStyle::Plain,
                               "Ilias Brandt | Structures\nCorvanite, Speicherhof 9"};
const DemoPerson People::marta{"Marta Wiśniewska", "marta@corvanite.example", 60, WritingStyle::Flowed,
                               "Marta Wiśniewska\nHydrodynamics, Corvanite"};
const DemoPerson People::tobias{"Tobias Lindqvist", "tobias@corvanite.example", 60, WritingStyle::Rich, "Tobias"};
const DemoPerson People::priya{"Priya Raman", "priya@corvanite.example", 330, WritingStyle::Rich,
                               "Priya Raman\nData platform, Corvanite"};
const DemoPerson People::sunniva{"Sunniva Hauge", "sunniva@corvanite.example", 60, WritingStyle::Plain,
                                 "Sunniva\nOffice & accounts"};
const DemoPerson People::henk{"Henk van der Meulen", "henk@corvanite.example", 60, WritingStyle::Flowed, "Henk"};

const DemoPerson People::rosalind{"Rosalind Achterberg", "r.achterberg@portofmerrow.example", 0, WritingStyle::Office,
                                  "Rosalind Achterberg\nHarbour Master\nPort of Merrow Authority"};
const DemoPerson People::anselm{"Anselm Krüger", "krueger@nordkai-stahl.example", 60, WritingStyle::Office,
                                "Anselm Krüger\nVertrieb / Sales\nNordkai Stahlbau GmbH"};
const DemoPerson People::quentin{"Quentin Abara", "q.abara@merrowbay-council.example", 0, WritingStyle::Office,
                                 "Quentin Abara\nCoastal Planning Officer\nMerrow Bay Council"};
const DemoPerson People::yusra{"Yusra Haddad", "yusra@opentides.example", 120, WritingStyle::Plain,
                               "Yusra Haddad\nOpen Tides – water levels for everybody"};
const DemoPerson People::olive{"Olive Tarrant", "olive@saltmarsh-survey.example", -240, WritingStyle::Flowed,
                               "Olive Tarrant, Saltmarsh Survey Co-op"};

const DemoPerson People::mum{"Ngozi Okafor", "ngozi.okafor@lanternpost.example", 60, WritingStyle::Rich, ""};
const DemoPerson People::kelechi{"Kelechi Okafor", "kelechi@brightwick.example", -300, WritingStyle::Rich, ""};
const DemoPerson People::amara{"Amara Okafor-Reyes", "amara@lanternpost.example", 0, WritingStyle::Plain, "A."};
const DemoPerson People::bea{"Bea Holloway", "bea@hollowayandsons.example", 0, WritingStyle::Flowed, "Bea"};
const DemoPerson People::jonas{"Jonas Petrak", "jonas@petrak.example", 60, WritingStyle::Rich, ""};
