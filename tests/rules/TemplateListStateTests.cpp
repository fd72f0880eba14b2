#include "rules/TemplateListState.h"

#include "mail/MenuFinder.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace {

const QByteArray thanks = R"({"_id": "1", "name": "Thanks", "subject": "Re: thanks", "body": "<p>Thank you</p>"})";
const QByteArray plain = R"({"_id": "2", "name": "Plain", "subject": ""})";

class Templates : public CoreTest {
protected:
    void SetUp() override {
        server.makeCurrent();
        expectList({thanks, plain});
        templates = TemplateListState::make();
        tester.emplace(&templates->rows);
        settle();
    }
    void TearDown() override {
        settle();
        templates.reset();
        CoreTest::TearDown();
    }

    static void settle() {
        EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
        deliverQueuedEvents();
    }
    void expectList(const QByteArrayList &entries) {
        server.expect("GET", "/api/templates").json("{\"templates\": [" + entries.join(", ") + "]}");
    }
    QStringList titles() const {
        QStringList titles;
        for (int row = 0; row < templates->rows.rowCount(); ++row)
            titles.append(templates->rows.row(row).title);
        return titles;
    }

    FakeServer server;
    std::shared_ptr<TemplateListState> templates;
    std::optional<QAbstractItemModelTester> tester;
};

} // namespace

TEST_F(Templates, RowShowsTheSubjectWhereThereIsOne) {
    expectList({thanks, plain, R"({"_id": "3", "name": ""})"});
    templates->reload();
    settle();
    const ListRow expected[] = {{u"1"_s, u"Thanks"_s, u"Re: thanks"_s, {}, u"Thanks, Re: thanks"_s},
                                {u"2"_s, u"Plain"_s, {}, {}, u"Plain"_s},
                                {u"3"_s, QString(), {}, {}, QString()}};
    ASSERT_EQ(templates->rows.rowCount(), 3);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(templates->rows.row(row), expected[row]) << row;
}

TEST_F(Templates, FailedLoadEmptiesTheList) {
    server.expect("GET", "/api/templates").answer(500);
    templates->reload();
    settle();
    EXPECT_TRUE(templates->templates->empty());
    EXPECT_EQ(titles(), QStringList());
}

TEST_F(Templates, RowOffersDeletionAlone) {
    const auto actions = templates->actions(u"2"_s);
    EXPECT_TRUE(actions.leading.empty());
    EXPECT_EQ(entryTexts({actions.trailing}), QStringList(u"Delete"_s));
    EXPECT_EQ(entryTexts(actions.menu), QStringList(u"Delete"_s));
    EXPECT_TRUE(actions.trailing[0].isDestructive);
    EXPECT_EQ(actions.trailing[0].icon, u"trash"_s);
    auto &request = server.expect("POST", "/api/templates/delete/2").answer(200);
    expectList({thanks});
    actions.trailing[0].perform();
    settle();
    EXPECT_EQ(request.request().body, "");
    EXPECT_EQ(titles(), QStringList(u"Thanks"_s));
}

TEST_F(Templates, RefusedDeletionLeavesTheRow) {
    server.expect("POST", "/api/templates/delete/1").answer(500);
    expectList({thanks, plain});
    templates->remove(u"1"_s);
    settle();
    EXPECT_EQ(titles(), (QStringList{u"Thanks"_s, u"Plain"_s}));
}

TEST_F(Templates, NameOfOneBlankIsEnough) {
    EXPECT_FALSE(templates->canCreate());
    templates->newBody = u"Text"_s;
    templates->create();
    settle();
    server.assertSilence();
    templates->newName = u" "_s;
    EXPECT_TRUE(templates->canCreate());
}

TEST_F(Templates, CreatingClosesTheSheetWhateverTheServerSays) {
    for (const int status : {200, 500}) {
        templates->showCreate = true;
        templates->newName = u"New"_s;
        templates->newBody = u"One\nTwo"_s;
        auto &request = server.expect("POST", "/api/templates/create").json("{}", status);
        expectList({plain});
        templates->create();
        templates->create();
        settle();
        EXPECT_EQ(parseJSON(request.request().body),
                  parseJSON(R"({"name": "New", "subject": "", "body": "One\nTwo"})"));
        EXPECT_FALSE(templates->showCreate);
        for (const auto *field : {&templates->newName, &templates->newSubject, &templates->newBody})
            EXPECT_EQ(field->get(), QString());
        EXPECT_EQ(titles(), QStringList(u"Plain"_s));
    }
}
