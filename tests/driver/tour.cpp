// Leaves screenshots of the program's screens in a folder.

#include "compose/screens/ComposeEditorView.h"
#include "driver/AppDriver.h"
#include "driver/MessageWriter.h"
#include "platform/UserDefaults.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
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
        showWriting();
        showError();
        return true;
    }

private:
    void take(const QString &name) { take(name, m_driver.window()); }

    void take(const QString &name, const QWidget &window) {
        const auto path = u"%1/%2-%3.png"_s.arg(m_folder).arg(++m_number, 2, 10, QChar(u'0')).arg(name);
        AppDriver::screenshot(window).save(path);
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

    void showWriting() {
        MessageWriter writer(m_driver);
        writer.open([&] { m_driver.press(Qt::Key_N, Qt::ControlModifier); });
        AppDriver::waitUntil([&] { return !writer.view()->state().allContacts->empty(); });
        writer.fill(u"To"_s, u"priya"_s);
        AppDriver::settle();
        m_driver.press(Qt::Key_Down);
        m_driver.press(Qt::Key_Return);
        writer.fill(u"Subject"_s, u"Tide tables for the spring, and Thursday"_s);
        writer.dropFiles({makeFile(u"Berth 4 survey.pdf"_s, 418'300), makeFile(u"Spring tides.csv"_s, 36'900)});
        writer.view()->window()->setGeometry(150, 30, 900, 740);
        writer.view()->editor()->focusEditor();
        m_driver.settle();
        writeLetter(writer);
        take(u"writing"_s, *writer.view()->window());
        m_driver.state().showCompose = false;
    }

    void writeLetter(MessageWriter &writer) {
        write(u"Hello Priya,\r\rthe new tables are ready. Before we publish them on "_s);
        press(writer, u"Bold"_s);
        write(u"Thursday"_s);
        press(writer, u"Bold"_s);
        write(u", could you look at three things?\r"_s);
        press(writer, u"Bullets"_s);
        write(u"the station at Berth 4: the survey moved its zero by "_s);
        choose(writer, u"Text Color"_s, u"Red"_s);
        write(u"12 mm"_s);
        choose(writer, u"Text Color"_s, u"Black"_s);
        write(u"\rthe column names in the file, which the harbour app reads\r"_s);
        press(writer, u"Italic"_s);
        write(u"Lowest astronomical tide"_s);
        press(writer, u"Italic"_s);
        write(u" on the 12th: is it really six years ago?\r\rI will bring the printed maps and the good coffee.\r"_s);
    }

    void write(const QString &text) {
        const auto lines = text.split(u'\r');
        for (const auto &line : lines) {
            m_driver.type(line);
            if (&line != &lines.last())
                m_driver.press(Qt::Key_Return);
        }
        m_driver.settle();
    }

    // The page runs commands and takes keys at times of its own.
    void press(MessageWriter &writer, const QString &button) {
        writer.pressButton(button);
        AppDriver::settle();
    }

    void choose(MessageWriter &writer, const QString &button, const QString &entry) {
        for (auto *action : m_driver.find<QToolButton>(button, writer.view())->menu()->actions())
            if (action->text() == entry)
                action->trigger();
        m_driver.settle();
    }

    QString makeFile(const QString &name, qint64 size) const {
        QFile file(m_files.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.resize(size) ? file.fileName() : QString();
    }

    void showError() {
        UserDefaults::standard().set(u"serverURL"_s, u"http://127.0.0.1:9"_s);
        m_driver.selectFolder(u"Archive"_s);
        take(u"error"_s);
    }

    AppDriver &m_driver;
    QTemporaryDir m_files;
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
