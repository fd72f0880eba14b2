#include "send/AddressList.h"

#include "http/APIError.h"

#include <gtest/gtest.h>

namespace {

struct ListRow {
    const char *name;
    const char *text;
    std::vector<MessageAddress> addresses;
};

const ListRow lists[] = {
    {"Bare", "a@b.example", {{"", "a@b.example"}}},
    {"Several",
     " a@b.example ,b@b.example;c@b.example,",
     {{"", "a@b.example"}, {"", "b@b.example"}, {"", "c@b.example"}}},
    {"Name", "Bob Ray <a@b.example>", {{"Bob Ray", "a@b.example"}}},
    {"CommaInQuotes", R"("Ray, Bob" <a@b.example>, c@b.example)", {{"Ray, Bob", "a@b.example"}, {"", "c@b.example"}}},
    {"EscapedQuotes", R"("Bob \"B, <x>\" \\ Ray" <a@b.example>)", {{R"(Bob "B, <x>" \ Ray)", "a@b.example"}}},
    {"PlainApostrophe", "Pat O'Brien <pat.o'brien@b.example>", {{"Pat O'Brien", "pat.o'brien@b.example"}}},
    {"BracketsOnly", "<a@b.example>", {{"", "a@b.example"}}},
    {"NameIsAnAddress", "\"x@y.example\" <a@b.example>", {{"x@y.example", "a@b.example"}}},
    {"LineBreaks", "\"Bob\r\n\tRay\"\r\n <a@b.example>", {{"Bob Ray", "a@b.example"}}},
    {"QuotedLocalPart", R"("a, b"@c.example)", {{"", R"("a, b"@c.example)"}}},
    {"PlusAndDots", "first.last+tag@sub.b.example", {{"", "first.last+tag@sub.b.example"}}},
    {"InternationalDomain", "a@bücher.example", {{"", "a@xn--bcher-kva.example"}}},
    {"Nothing", " , ", {}},
};

class AddressLists : public testing::TestWithParam<ListRow> {};

} // namespace

TEST_P(AddressLists, AreRead) {
    const auto addresses = parseAddressList(GetParam().text);
    ASSERT_EQ(addresses.size(), GetParam().addresses.size());
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        EXPECT_EQ(addresses[i].name, GetParam().addresses[i].name);
        EXPECT_EQ(addresses[i].address, GetParam().addresses[i].address);
    }
}

INSTANTIATE_TEST_SUITE_P(, AddressLists, testing::ValuesIn(lists), [](const auto &row) { return row.param.name; });

TEST(AddressListTest, WhatIsNoAddressIsNamed) {
    const auto longest = std::string(65, 'a') + "@b.example";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"a@b.example, bob", "bob"},
        {"Bob <bob>", "bob"},
        {"Bob <>", ""},
        {"a@b@c.example", "a@b@c.example"},
        {"a b@c.example", "a b@c.example"},
        {"@b.example", "@b.example"},
        {"a@", "a@"},
        {"a..b@c.example", "a..b@c.example"},
        {".a@c.example", ".a@c.example"},
        {"a@-b.example", "a@-b.example"},
        {"a@b..example", "a@b..example"},
        {"jürgen@b.example", "jürgen@b.example"},
        {"a@b.example>, c@d.example", "a@b.example>"},
        {"Bob <a@b.example> x", "Bob <a@b.example> x"},
        {"\"Ray, Bob <a@b.example>, c@d.example", "\"Ray, Bob <a@b.example>, c@d.example"},
        {"a@b.example\r\nRCPT TO: c@d.example", "a@b.example RCPT TO: c@d.example"},
        {"<a@b.example>\r\nX", "<a@b.example> X"},
        {longest, longest},
    };
    for (const auto &[text, named] : cases) {
        try {
            parseAddressList(text);
            ADD_FAILURE() << text;
        } catch (const APIError &error) {
            EXPECT_EQ(error.what(), "\"" + named + "\" is not a mail address");
            EXPECT_EQ(error.status(), 400);
        }
    }
}
