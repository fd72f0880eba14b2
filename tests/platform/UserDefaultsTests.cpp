#include "platform/UserDefaults.h"

#include "platform/AtomicFileWriter.h"
#include "support/CoreTest.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <csignal>
#include <sys/resource.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

class UserDefaultsTest : public CoreTest {
protected:
    QJsonObject stored() const {
        AtomicFileWriter::shared().flush();
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }

    void writeFile(const QByteArray &content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// The names of the files beside the store's own.
    QStringList filesBeside() const {
        AtomicFileWriter::shared().flush();
        auto names = QDir(temporaryPath(u""_s)).entryList(QDir::Files | QDir::Hidden);
        names.removeOne(u"defaults.json"_s);
        return names;
    }

    const QString path = temporaryPath(u"defaults.json"_s);
};

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "unreadable";
}

} // namespace

TEST_F(UserDefaultsTest, aValueOfAnotherKindReadsAsAbsent) {
    struct Row {
        QJsonValue value;
        std::optional<QString> text;
        std::optional<bool> flag;
        std::optional<qint64> integer;
        std::optional<double> number;
    };
    const Row table[] = {
        {u"text"_s, u"text"_s, {}, {}, {}},
        {u""_s, u""_s, {}, {}, {}},
        {u"1"_s, u"1"_s, {}, {}, {}},
        {true, {}, true, {}, {}},
        {false, {}, false, {}, {}},
        {0, {}, {}, 0, 0.0},
        {-3, {}, {}, -3, -3.0},
        {3.0, {}, {}, 3, 3.0},
        {3.5, {}, {}, {}, 3.5},
        {qint64(9007199254740993), {}, {}, 9007199254740993, 9007199254740992.0},
        {1e300, {}, {}, {}, 1e300},
        {QJsonValue::Null, {}, {}, {}, {}},
        {QJsonArray{1}, {}, {}, {}, {}},
        {QJsonObject{{u"a"_s, 1}}, {}, {}, {}, {}},
    };
    for (const auto &row : table) {
        UserDefaults store(path);
        store.set(u"key"_s, row.value);
        AtomicFileWriter::shared().flush();
        const UserDefaults restarted(path);
        for (const auto *read : {&std::as_const(store), &restarted}) {
            EXPECT_EQ(read->text(u"key"_s), row.text);
            EXPECT_EQ(read->flag(u"key"_s), row.flag);
            EXPECT_EQ(read->integer(u"key"_s), row.integer);
            EXPECT_EQ(read->number(u"key"_s), row.number);
            EXPECT_EQ(read->bytes(u"key"_s), std::nullopt);
            EXPECT_EQ(read->value(u"key"_s), row.value);
            EXPECT_TRUE(read->contains(u"key"_s));
        }
    }
}

TEST_F(UserDefaultsTest, absentIsNotFalse) {
    UserDefaults store(path);
    EXPECT_EQ(store.flag(u"key"_s), std::nullopt);
    EXPECT_FALSE(store.contains(u"key"_s));
    store.set(u"key"_s, false);
    EXPECT_EQ(store.flag(u"key"_s), false);
    store.remove(u"key"_s);
    EXPECT_EQ(store.flag(u"key"_s), std::nullopt);
}

TEST_F(UserDefaultsTest, keepsBytesAsTheyAre) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(char(byte));
    UserDefaults store(path);
    store.set(u"all"_s, all);
    store.set(u"none"_s, QByteArray());
    AtomicFileWriter::shared().flush();
    const UserDefaults restarted(path);
    EXPECT_EQ(restarted.bytes(u"all"_s), all);
    EXPECT_EQ(restarted.bytes(u"none"_s), QByteArray());
    EXPECT_EQ(restarted.text(u"all"_s), std::nullopt);
}

TEST_F(UserDefaultsTest, wakesItsObserversOnlyWhenAValueChanges) {
    UserDefaults store(path);
    int changes = 0;
    QObject::connect(&store, &UserDefaults::changed, &store, [&] { ++changes; });
    const std::vector<std::pair<std::function<void()>, bool>> steps{
        {[&] { store.set(u"a"_s, 1); }, true},
        {[&] { store.set(u"a"_s, 1); }, false},
        {[&] { store.set(u"a"_s, true); }, true},
        {[&] { store.set(u"a"_s, 1); }, true},
        {[&] { store.set(u"a"_s, u"1"_s); }, true},
        {[&] { store.set(u"a"_s, QByteArray("1")); }, true},
        {[&] { store.set(u"a"_s, QByteArray("1")); }, false},
        {[&] { store.set(u"a"_s, QJsonValue::Null); }, true},
        {[&] { store.remove(u"a"_s); }, true},
        {[&] { store.remove(u"a"_s); }, false},
    };
    for (size_t number = 0; number < steps.size(); ++number) {
        const auto before = changes;
        steps[number].first();
        EXPECT_EQ(changes - before, steps[number].second ? 1 : 0) << "step " << number;
    }
}

TEST_F(UserDefaultsTest, anObserverMayReadAndWriteTheStore) {
    UserDefaults store(path);
    QObject::connect(&store, &UserDefaults::changed, &store,
                     [&] { store.set(u"copy"_s, store.integer(u"a"_s).value_or(0)); });
    store.set(u"a"_s, 5);
    EXPECT_EQ(store.integer(u"copy"_s), 5);
}

TEST_F(UserDefaultsTest, aFileThatCannotBeParsedIsSetAsideWithItsContent) {
    for (const QByteArray bad : {"{\"serverURL\":\"http", "", "[]", "3", "not JSON", "\xff\xfe"}) {
        const auto before = filesBeside();
        writeFile(bad);
        UserDefaults store(path);
        EXPECT_FALSE(store.contains(u"serverURL"_s));
        EXPECT_EQ(contentOf(path), bad) << "reading changes nothing";
        store.set(u"a"_s, 1);
        EXPECT_EQ(stored(), (QJsonObject{{u"a"_s, 1}}));
        auto added = filesBeside();
        for (const auto &name : before)
            added.removeOne(name);
        ASSERT_EQ(added.size(), 1);
        EXPECT_EQ(contentOf(temporaryPath(added.first())), bad);
    }
}

TEST_F(UserDefaultsTest, whatCannotBeReadAndNotBeMovedIsNeverOverwritten) {
    ASSERT_TRUE(QDir().mkpath(path + u"/inside"_s));
    UserDefaults store(path);
    store.set(u"a"_s, 1);
    EXPECT_EQ(store.integer(u"a"_s), 1) << "the value holds until the end of the program";
    AtomicFileWriter::shared().flush();
    EXPECT_TRUE(QDir(path + u"/inside"_s).exists() || !filesBeside().isEmpty() ||
                QDir(path + u".unreadable-1/inside"_s).exists());
}

TEST_F(UserDefaultsTest, aFullDiskLeavesTheOldFileWhole) {
    UserDefaults store(path);
    store.set(u"a"_s, 1);
    ASSERT_EQ(stored(), (QJsonObject{{u"a"_s, 1}}));
    // A limit on the size of files fails a write in the middle, for root too.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{4096, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    store.set(u"great"_s, QString(100000, u'x'));
    const auto during = stored();
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(during, (QJsonObject{{u"a"_s, 1}}));
    EXPECT_EQ(filesBeside(), QStringList());
    store.set(u"b"_s, 2);
    EXPECT_EQ(stored().size(), 3) << "what could not be written is written with the next change";
}

TEST_F(UserDefaultsTest, aReaderNeverSeesHalfAFile) {
    UserDefaults store(path);
    store.set(u"text"_s, QString(50000, u'x'));
    AtomicFileWriter::shared().flush();
    std::atomic<bool> ended = false;
    std::atomic<int> reads = 0, bad = 0;
    std::jthread reader([&] {
        while (!ended || reads < 50) {
            QJsonParseError error{};
            QJsonDocument::fromJson(contentOf(path), &error);
            bad += error.error != QJsonParseError::NoError;
            ++reads;
        }
    });
    for (int number = 0; number < 100; ++number) {
        store.set(u"text"_s, QString(50000 - number, u'y'));
        AtomicFileWriter::shared().flush();
    }
    ended = true;
    reader.join();
    EXPECT_EQ(bad, 0);
}

TEST_F(UserDefaultsTest, manyWritesEndWithTheLastOne) {
    UserDefaults store(path);
    for (int number = 0; number < 2000; ++number)
        store.set(u"n"_s, number);
    EXPECT_EQ(stored(), (QJsonObject{{u"n"_s, 1999}}));
}

TEST_F(UserDefaultsTest, severalThreadsMayUseItAtOnce) {
    UserDefaults store(path);
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&store, thread] {
            for (int round = 0; round < 100; ++round) {
                store.set(QString::number(thread), round);
                store.integer(u"0"_s);
            }
        });
    threads.clear();
    EXPECT_EQ(stored(), (QJsonObject{{u"0"_s, 99}, {u"1"_s, 99}, {u"2"_s, 99}, {u"3"_s, 99}}));
}

TEST_F(UserDefaultsTest, suitesAreStoresOfTheirOwn) {
    const auto one = UserDefaults::suite(u"group.one"_s), two = UserDefaults::suite(u"group.two"_s);
    one->set(u"a"_s, 1);
    two->set(u"a"_s, 2);
    EXPECT_EQ(UserDefaults::suite(u"group.one"_s), one);
    EXPECT_FALSE(UserDefaults::standard().contains(u"a"_s));
    AtomicFileWriter::shared().flush();
    EXPECT_EQ(contentOf(TestHome::dataHome() + u"/group.one/defaults.json"_s), "{\n    \"a\": 1\n}\n");
    EXPECT_EQ(contentOf(TestHome::dataHome() + u"/group.two/defaults.json"_s), "{\n    \"a\": 2\n}\n");
}

TEST_F(UserDefaultsTest, aSuiteWhoseFolderCannotBeMadeIsNone) {
    QFile blocker(TestHome::dataHome() + u"/group.blocked"_s);
    ASSERT_TRUE(QDir().mkpath(TestHome::dataHome()) && blocker.open(QIODevice::WriteOnly));
    EXPECT_EQ(UserDefaults::suite(u"group.blocked"_s), nullptr);
}
