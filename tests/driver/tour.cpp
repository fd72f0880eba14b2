// Leaves screenshots of the program's screens in a folder.

#include "driver/AppDriver.h"
#include "platform/UserDefaults.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

class Tour {
public:
    Tour(AppDriver &driver, const QString &folder)
        : m_driver(driver)
        , m_folder(folder) {}

    bool run() {
        take(u"sign-in"_s);
        m_driver.signIn(u"demo"_s, u"corvanite"_s);
        if (!m_driver.waitForList())
            return false;
        take(u"inbox"_s);
        showMessages();
        showSearch();
        showEmptyFolder();
        showError();
        return true;
    }

private:
    void take(const QString &name) {
        const auto path = u"%1/%2-%3.png"_s.arg(m_folder).arg(++m_number, 2, 10, QChar(u'0')).arg(name);
        m_driver.screenshot().save(path);
    }

    void setTheme(const QString &id) {
        m_driver.state().themeManager.setCurrentThemeId(id);
        m_driver.settle();
    }

    void showMessages() {
        m_driver.openMessage(u"Re: Sunday lunch"_s);
        take(u"plain-message"_s);
        m_driver.selectFolder(u"Newsletters"_s);
        m_driver.openRow(0);
        take(u"html-message-light"_s);
        setTheme(u"dark"_s);
        take(u"html-message-dark"_s);
        if (auto *button = m_driver.find(u"Show Images"_s))
            m_driver.waitForBody([&] { m_driver.click(button); });
        take(u"html-message-dark-with-images"_s);
        setTheme(u"space"_s);
        take(u"html-message-space"_s);
        setTheme(u"light"_s);
    }

    void showSearch() {
        m_driver.selectFolder(u"INBOX"_s);
        m_driver.find<QLineEdit>(u"Search emails…"_s)->setFocus();
        m_driver.type(u"tide"_s);
        m_driver.press(Qt::Key_Return);
        m_driver.waitForList();
        take(u"search"_s);
    }

    void showEmptyFolder() {
        m_driver.selectFolder(u"Travel"_s);
        take(u"empty-folder"_s);
    }

    void showError() {
        UserDefaults::standard().set(u"serverURL"_s, u"http://127.0.0.1:9"_s);
        m_driver.selectFolder(u"Archive"_s);
        take(u"error"_s);
    }

    AppDriver &m_driver;
    QString m_folder;
    int m_number = 0;
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    if (argc != 3 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::cerr << "Usage: corvanite-tour FOLDER SERVER\n";
        return 2;
    }
    AppDriver driver(QString::fromLocal8Bit(argv[2]));
    return Tour(driver, QString::fromLocal8Bit(argv[1])).run() ? 0 : 1;
}
