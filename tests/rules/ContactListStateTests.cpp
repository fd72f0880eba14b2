#include "rules/ContactListState.h"

#include "mail/MenuFinder.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace {

const QByteArray ada = R"({"_id": "a", "email": "Ada@x.org", "name": "Ada Lovelace", "frequency": 12})";
const QByteArray bob = R"({"_id": "b", "email": "bob@y.org", "frequency": 0, "source": "sent"})";
const QByteArray zoe = R"({"_id": "z", "email": "zoe@x.org", "name": "Zoë of Rome", "frequency": 1})";

class Contacts : public CoreTest {
protected:
    void SetUp() override { server.makeCurrent(); }
    void TearDown() override {
        settle();
        contacts.reset();
        CoreTest::TearDown();
    }

    static void settle() {
        EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
        deliverQueuedEvents();
    }
    FakeExchange &expectList(const QByteArrayList &entries) {
        return server.expect("GET", "/api/contacts").json("{\"contacts\": [" + entries.join(", ") + "]}");
    }
    void open(const QByteArrayList &entries) {
        expectList(entries);
        contacts = ContactListState::make();
        tester.emplace(&contacts->rows);
        settle();
    }
    QStringList titles() const {
        QStringList titles;
        for (int row = 0; row < contacts->rows.rowCount(); ++row)
            titles.append(contacts->rows.row(row).title);
        return titles;
    }
    QStringList search(const QString &text) {
        contacts->searchQuery = text;
        deliverQueuedEvents();
        return titles();
    }
    void expectBody(FakeExchange &exchange, const QByteArray &json) {
        EXPECT_EQ(parseJSON(exchange.request().body), parseJSON(json));
    }

    FakeServer server;
    std::shared_ptr<ContactListState> contacts;
    std::optional<QAbstractItemModelTester> tester;
};

struct SearchRow {
    const char *name;
    QString query;
    QStringList found;
};

class ContactSearch : public Contacts, public testing::WithParamInterface<SearchRow> {};

const QString adaTitle = u"Ada Lovelace"_s, bobTitle = u"bob@y.org"_s, zoeTitle = u"Zoë of Rome"_s;

const SearchRow searches[] = {
    {"Nothing", {}, {adaTitle, bobTitle, zoeTitle}},         {"CapitalsFindSmallLetters", u"BOB@"_s, {bobTitle}},
    {"SmallLettersFindCapitals", u"ada@"_s, {adaTitle}},     {"Name", u"ROME"_s, {zoeTitle}},
    {"OtherAlphabetsHaveCapitalsToo", u"ZOË"_s, {zoeTitle}}, {"TrailingBlankIsSearched", u"zoë "_s, {zoeTitle}},
    {"TrailingBlankIsNotTrimmed", u"rome "_s, {}},           {"BlankAlone", u" "_s, {adaTitle, zoeTitle}},
};

} // namespace

TEST_P(ContactSearch, FindsInTheListsOrder) {
    open({ada, bob, zoe});
    EXPECT_EQ(search(GetParam().query), GetParam().found);
    EXPECT_EQ(contacts->contacts->size(), 3);
}

INSTANTIATE_TEST_SUITE_P(, ContactSearch, testing::ValuesIn(searches), rowName);

TEST_F(Contacts, RowShowsWhatThereIs) {
    open({ada, bob, zoe, R"({"_id": "e", "email": "e@x.org", "name": ""})"});
    const ListRow expected[] = {
        {u"a"_s, adaTitle, u"Ada@x.org"_s, u"12"_s, u"Ada Lovelace, Ada@x.org, used 12 times"_s},
        {u"b"_s, bobTitle, {}, {}, bobTitle},
        {u"z"_s, zoeTitle, u"zoe@x.org"_s, u"1"_s, u"Zoë of Rome, zoe@x.org, used once"_s},
        {u"e"_s, u"e@x.org"_s, {}, {}, u"e@x.org"_s}};
    ASSERT_EQ(contacts->rows.rowCount(), 4);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(contacts->rows.row(row), expected[row]) << row;
}

TEST_F(Contacts, PlaceholderWaitsForTheFirstLoad) {
    auto &request = server.expect("GET", "/api/contacts").held();
    contacts = ContactListState::make();
    request.request();
    EXPECT_EQ(contacts->placeholder(), std::nullopt);
    request.sendHead(200, "application/json", "Content-Length: 16\r\n");
    request.send(R"({"contacts": []})");
    settle();
    ASSERT_TRUE(contacts->placeholder());
    EXPECT_EQ(contacts->placeholder()->title, u"No contacts"_s);
    expectList({ada});
    contacts->reload();
    settle();
    EXPECT_EQ(contacts->placeholder(), std::nullopt);
    search(u"nobody"_s);
    ASSERT_TRUE(contacts->placeholder());
    EXPECT_EQ(contacts->placeholder()->title, u"No contact found"_s);
}

TEST_F(Contacts, FailedLoadEmptiesTheList) {
    open({ada, bob});
    server.expect("GET", "/api/contacts").json(R"({"error": "down"})", 500);
    contacts->reload();
    settle();
    EXPECT_TRUE(contacts->contacts->empty());
    EXPECT_EQ(titles(), QStringList());
    EXPECT_EQ(contacts->placeholder(), std::nullopt) << "nobody knows whether there are any";
}

TEST_F(Contacts, LateAnswerDoesNotReplaceANewerOne) {
    open({});
    auto &late = server.expect("GET", "/api/contacts").held();
    contacts->reload();
    late.request();
    expectList({bob});
    contacts->reload();
    ASSERT_TRUE(spinUntil([this] { return contacts->contacts->size() == 1; }));
    late.sendHead(200, "application/json", "Content-Length: 16\r\n");
    late.send(R"({"contacts": []})");
    settle();
    EXPECT_EQ(titles(), QStringList(bobTitle));
}

TEST_F(Contacts, RemovedOneGoesAtOnceAndForGood) {
    open({ada, bob, R"({"_id": "a", "email": "twin@x.org"})", zoe});
    auto &removal = server.expect("DELETE", "/api/contacts/a").held();
    contacts->remove(u"a"_s);
    deliverQueuedEvents();
    EXPECT_EQ(titles(), (QStringList{bobTitle, zoeTitle}));
    EXPECT_EQ(removal.request().body, "");
    // A list that was made before the server has removed it.
    expectList({ada, bob});
    contacts->reload();
    ASSERT_TRUE(spinUntil([this] { return contacts->contacts->size() == 1; }));
    removal.sendHead(200, "application/json", "Content-Length: 0\r\n");
    settle();
    EXPECT_EQ(titles(), QStringList(bobTitle));
}

TEST_F(Contacts, RefusedRemovalBringsTheRowBack) {
    open({ada, bob});
    server.expect("DELETE", "/api/contacts/a").json(R"({"error": "no"})", 403);
    expectList({ada, bob});
    contacts->remove(u"a"_s);
    settle();
    EXPECT_EQ(titles(), (QStringList{adaTitle, bobTitle}));
}

TEST_F(Contacts, AddingNeedsSomeAddress) {
    open({});
    EXPECT_FALSE(contacts->canAdd());
    contacts->add();
    settle();
    server.assertSilence();
    for (const auto &text : {u" "_s, u"nobody"_s, u"a@x.org"_s}) {
        contacts->newEmail = text;
        EXPECT_TRUE(contacts->canAdd()) << qPrintable(text);
    }
}

TEST_F(Contacts, AddingClosesTheSheetWhateverTheServerSays) {
    open({});
    for (const int status : {200, 500}) {
        contacts->showAdd = true;
        contacts->newEmail = u" new"_s;
        contacts->newName = u"New \"One\""_s;
        auto &request = server.expect("POST", "/api/contacts/add").json("{}", status);
        expectList(status == 200 ? QByteArrayList{bob} : QByteArrayList{});
        contacts->add();
        EXPECT_FALSE(contacts->canAdd());
        contacts->add();
        settle();
        expectBody(request, R"({"email": " new", "name": "New \"One\""})");
        EXPECT_FALSE(contacts->showAdd);
        EXPECT_EQ(contacts->newEmail.get(), QString());
        EXPECT_EQ(contacts->newName.get(), QString());
        EXPECT_EQ(contacts->contacts->size(), status == 200 ? 1 : 0);
    }
}

TEST_F(Contacts, CancelledAddingKeepsWhatWasTyped) {
    open({});
    contacts->showAdd = true;
    contacts->newEmail = u"a@"_s;
    contacts->newName = u"A"_s;
    contacts->cancelAdding();
    EXPECT_FALSE(contacts->showAdd);
    EXPECT_EQ(contacts->newEmail.get(), u"a@"_s);
    EXPECT_EQ(contacts->newName.get(), u"A"_s);
}

TEST_F(Contacts, EditingBeginsWithWhatTheContactHas) {
    open({ada, bob});
    contacts->startEditing(u"a"_s);
    EXPECT_EQ(contacts->editEmail.get(), u"Ada@x.org"_s);
    EXPECT_EQ(contacts->editName.get(), adaTitle);
    contacts->editName = u"Changed"_s;
    contacts->cancelEditing();
    EXPECT_EQ(contacts->editingContact.get(), std::nullopt);
    contacts->startEditing(u"b"_s);
    EXPECT_EQ(contacts->editName.get(), QString());
    ASSERT_TRUE(contacts->editingContact.get());
    EXPECT_EQ(contacts->editingContact.get()->_id, u"b"_s);
    contacts->cancelEditing();
    contacts->startEditing(u"gone"_s);
    EXPECT_EQ(contacts->editingContact.get(), std::nullopt);
}

TEST_F(Contacts, SavingNeedsAnAddressWithAnAt) {
    open({ada});
    contacts->startEditing(u"a"_s);
    const std::pair<QString, bool> rows[] = {
        {{}, false}, {u"  "_s, false}, {u"ada"_s, false}, {u" @ "_s, true}, {u"@"_s, true}};
    for (const auto &[text, canSave] : rows) {
        contacts->editEmail = text;
        EXPECT_EQ(contacts->canSave(), canSave) << qPrintable(text);
    }
}

TEST_F(Contacts, SavingClosesTheSheetWhateverTheServerSays) {
    open({ada});
    for (const int status : {200, 500}) {
        contacts->startEditing(u"a"_s);
        contacts->editEmail = u" ada@new.org "_s;
        auto &request = server.expect("POST", "/api/contacts/update").json("{}", status);
        expectList({ada, bob});
        contacts->save();
        contacts->save();
        settle();
        expectBody(request, R"({"contact_id": "a", "email": " ada@new.org ", "name": "Ada Lovelace"})");
        EXPECT_EQ(contacts->editingContact.get(), std::nullopt);
        EXPECT_EQ(contacts->contacts->size(), 2);
    }
}

TEST_F(Contacts, SlowSaveNeitherHoldsUpNorClosesAnothersSheet) {
    open({ada, bob});
    contacts->startEditing(u"a"_s);
    auto &request = server.expect("POST", "/api/contacts/update").held();
    expectList({ada, bob});
    contacts->save();
    request.request();
    contacts->cancelEditing();
    contacts->newEmail = u"new@x.org"_s;
    EXPECT_TRUE(contacts->canAdd());
    contacts->startEditing(u"a"_s);
    EXPECT_FALSE(contacts->canSave());
    contacts->startEditing(u"b"_s);
    EXPECT_TRUE(contacts->canSave());
    request.sendHead(200, "application/json", "Content-Length: 0\r\n");
    settle();
    ASSERT_TRUE(contacts->editingContact.get());
    EXPECT_EQ(contacts->editingContact.get()->_id, u"b"_s);
    EXPECT_TRUE(contacts->canSave());
}

TEST_F(Contacts, RowOffersDeletionAndEditing) {
    open({ada, bob});
    const auto actions = contacts->actions(u"b"_s);
    EXPECT_TRUE(actions.leading.empty());
    EXPECT_EQ(entryTexts({actions.trailing}), (QStringList{u"Delete"_s, u"Edit"_s}));
    EXPECT_TRUE(actions.trailing[0].isDestructive);
    EXPECT_EQ(actions.trailing[0].icon, u"trash"_s);
    EXPECT_EQ(actions.trailing[1].icon, u"pencil"_s);
    EXPECT_EQ(entryTexts(actions.menu), (QStringList{u"Edit"_s, u"Delete"_s}));
    actions.trailing[1].perform();
    EXPECT_EQ(contacts->editEmail.get(), bobTitle);
    server.expect("DELETE", "/api/contacts/b").answer(200);
    actions.trailing[0].perform();
    settle();
    EXPECT_EQ(titles(), QStringList(adaTitle));
}

TEST_F(Contacts, ScreenThatIsGoneLetsTheAdditionGoOn) {
    open({});
    contacts->newEmail = u"a@x.org"_s;
    auto &request = server.expect("POST", "/api/contacts/add").held();
    expectList({});
    contacts->add();
    tester.reset();
    contacts.reset();
    request.request();
    request.sendHead(200, "application/json", "Content-Length: 0\r\n");
    settle();
}
