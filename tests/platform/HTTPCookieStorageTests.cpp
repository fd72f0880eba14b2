#include "platform/HTTPCookieStorage.h"

#include "platform/AtomicFileWriter.h"
#include "support/CoreTest.h"

#include <QDir>
#include <QFile>
#include <QNetworkCookie>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

class HTTPCookieStorageTest : public CoreTest {
protected:
    /// The cookies of a new start of the program, as they are sent.
    QByteArray afterRestart(const QUrl &url) {
        AtomicFileWriter::shared().flush();
        QByteArrayList texts;
        for (const auto &cookie : HTTPCookieStorage(path).cookies(url))
            texts.append(cookie.toRawForm(QNetworkCookie::NameAndValueOnly));
        std::ranges::sort(texts);
        return texts.join("; ");
    }

    void writeFile(const QByteArray &content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    const QString path = temporaryPath(u"folder/cookies.txt"_s);
    const QUrl site{u"https://mail.example/"_s};
};

} // namespace

TEST_F(HTTPCookieStorageTest, cookiesSurviveARestart) {
    const std::vector<std::pair<QByteArray, QByteArray>> table{
        {"session=1", "session=1"},
        {"session=1; Path=/; Secure; HttpOnly; SameSite=Strict", "session=1"},
        {"a=1; Expires=Fri, 01 Jan 2100 00:00:00 GMT", "a=1"},
        {"a=1; Max-Age=3600", "a=1"},
        {"a=1; Max-Age=0", ""},
        {"a=1; Expires=Fri, 01 Jan 1999 00:00:00 GMT", ""},
        {"a=s%3Ab.c+d/e==; Path=/", "a=s%3Ab.c+d/e=="},
        {"a=\"quoted, with comma\"", "a=\"quoted, with comma\""},
        {"a=", "a="},
        {"a=1; Domain=mail.example", "a=1"},
        {"a=1; Domain=other.example", ""},
        {"a=\xc3\xa4", "a=\xc3\xa4"},
    };
    for (const auto &[text, expected] : table) {
        HTTPCookieStorage storage(path);
        storage.setCookies(QNetworkCookie::parseCookies(text), site);
        EXPECT_EQ(afterRestart(site), expected) << text.toStdString();
        storage.remove(storage.cookies(site));
        EXPECT_EQ(afterRestart(site), "") << text.toStdString();
    }
}

TEST_F(HTTPCookieStorageTest, cookiesOfAnyKindOfHostSurviveARestart) {
    for (const auto &address : {u"http://127.0.0.1:8080/"_s, u"http://localhost:8080/"_s, u"http://[::1]:8080/"_s,
                                u"https://b\u00fccher.example/"_s, u"https://mail/"_s}) {
        HTTPCookieStorage storage(path);
        storage.setCookies(QNetworkCookie::parseCookies("session=1; Path=/"), QUrl(address));
        EXPECT_EQ(afterRestart(QUrl(address)), "session=1") << qPrintable(address);
        EXPECT_EQ(afterRestart(QUrl(u"https://elsewhere.example/"_s)), "") << qPrintable(address);
    }
}

TEST_F(HTTPCookieStorageTest, aCookieThatExpiredSinceIsNotSent) {
    ASSERT_TRUE(QDir().mkpath(temporaryPath(u"folder"_s)));
    writeFile("mail.example\told=1; expires=Fri, 01-Jan-2010 00:00:00 GMT; path=/\n"
              "mail.example\tkept=1; expires=Fri, 01-Jan-2100 00:00:00 GMT; path=/\n");
    EXPECT_EQ(afterRestart(site), "kept=1");
}

TEST_F(HTTPCookieStorageTest, theFileIsForItsOwnerOnly) {
    HTTPCookieStorage(path).setCookies({QNetworkCookie("a", "1")}, site);
    AtomicFileWriter::shared().flush();
    const auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(path), owner);
    EXPECT_EQ(QFile::permissions(temporaryPath(u"folder"_s)), owner | QFile::ExeOwner | QFile::ExeUser);
}

TEST_F(HTTPCookieStorageTest, aDamagedFileCostsOnlyItsDamagedLines) {
    ASSERT_TRUE(QDir().mkpath(temporaryPath(u"folder"_s)));
    const QByteArray good = "mail.example\tkept=1; path=/\n";
    for (const QByteArray &bad :
         {QByteArray("\0\xff\xfe garbage", 11), QByteArray("=; ;;=\n"), QByteArray(100000, 'x'), QByteArray("mail.exa"),
          QByteArray("mail.example\t"), QByteArray("{\"json\":true}\n")}) {
        writeFile(good + bad + '\n');
        EXPECT_EQ(afterRestart(site), "kept=1") << bad.left(20).toStdString();
    }
}

TEST_F(HTTPCookieStorageTest, severalThreadsMayUseItAtOnce) {
    HTTPCookieStorage storage(path);
    std::vector<std::jthread> threads;
    for (int number = 0; number < 4; ++number)
        threads.emplace_back([&storage, number, this] {
            for (int round = 0; round < 50; ++round) {
                storage.setCookies({QNetworkCookie("c" + QByteArray::number(number), QByteArray::number(round))}, site);
                storage.cookies(site);
            }
        });
    threads.clear();
    EXPECT_EQ(afterRestart(site), "c0=49; c1=49; c2=49; c3=49");
}
