#include "BlockWatch.h"
#include "Chapters.h"
#include "Mailbox.h"
#include "MainThread.h"
#include "PeakMemory.h"
#include "Report.h"
#include "ScreenProbe.h"
#include "compose/screens/ComposeEditorView.h"
#include "driver/MessageWriter.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 10;
constexpr int keys = 30;
constexpr int restTime = 500; // milliseconds
constexpr int files = 5;
constexpr qint64 fileSize = 5 * 1024 * 1024; // bytes

class WritingBench {
public:
    explicit WritingBench(AppDriver &driver)
        : m_driver(driver)
        , m_writer(driver) {}

    void measureNewMessages() {
        Series field, text;
        for (int run = 0; run < runs; ++run) {
            activate();
            QElapsedTimer timer;
            timer.start();
            m_driver.press(Qt::Key_N, Qt::ControlModifier);
            MainThread::runUntil([this] { return m_writer.view() != nullptr; });
            field.add(double(timer.nsecsElapsed()) / 1e6);
            waitForEditor([](const QString &) { return true; });
            text.add(double(timer.nsecsElapsed()) / 1e6);
            close();
        }
        Report::add(u"New message, key press to window"_s, field, u"ms"_s, {100});
        Report::add(u"New message, key press to a text that takes keys"_s, text, u"ms"_s, {100});
    }

    /// From a key press to its glyph on the display, while reports of a long text cross the bridge.
    void measureKeys() {
        openLongReply();
        m_writer.view()->editor()->focusEditor();
        MainThread::run(restTime);
        const auto *editor = m_writer.view()->editor();
        const QRect line(editor->mapToGlobal(QPoint(12, 8)), QSize(200, 30));
        Series glyph;
        for (int key = 0; key < keys; ++key) {
            m_driver.type(u"\u2588"_s);
            QElapsedTimer timer;
            timer.start();
            MainThread::runUntil([&] { return m_screen.shows(Qt::black, line); });
            glyph.add(double(timer.nsecsElapsed()) / 1e6);
            m_driver.press(Qt::Key_Backspace);
            MainThread::runUntil([&] { return !m_screen.shows(Qt::black, line); });
        }
        Report::add(u"Key press to glyph, above 1 MB of HTML"_s, glyph, u"ms"_s, {50});
        close();
    }

    void measureReplies() {
        Series reply, block;
        BlockWatch::restart();
        for (int run = 0; run < runs; ++run) {
            reply.add(openLongReply());
            close();
        }
        block.add(BlockWatch::longest());
        Report::add(u"Reply to 1 MB of HTML, request to text that can be edited"_s, reply, u"ms"_s, {300});
        Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
    }

    void measureFiles() {
        const auto paths = makeFiles();
        Series time, memory, block;
        for (int run = 0; run < runs / 2; ++run) {
            activate();
            m_driver.press(Qt::Key_N, Qt::ControlModifier);
            MainThread::runUntil([this] { return m_writer.view() && m_writer.view()->state().isFilled(); });
            m_writer.fill(u"To"_s, u"dana@corvanite.example"_s);
            m_writer.fill(u"Subject"_s, u"Big files"_s);
            MainThread::run(restTime);
            const double before = PeakMemory::restart();
            BlockWatch::restart();
            m_writer.dropFiles(paths);
            QElapsedTimer timer;
            timer.start();
            m_writer.pressButton(u"Send"_s);
            MainThread::runUntil([this] { return !m_writer.view(); });
            time.add(double(timer.nsecsElapsed()) / 1e6);
            block.add(BlockWatch::longest());
            memory.add(PeakMemory::value() - before);
            MainThread::run(restTime);
        }
        const double size = double(files * fileSize) / 1e6;
        Report::add(u"25 MB of files, Send to closed screen, the server's time included"_s, time, u"ms"_s, {5000});
        Report::add(u"Peak of the memory above what was held before"_s, memory, u"MB"_s, {5 * size});
        Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
    }

private:
    // There is no window manager to do it when the window before it has gone.
    void activate() {
        m_driver.window().activateWindow();
        MainThread::runUntil([this] { return m_driver.window().isActiveWindow(); });
    }

    void waitForEditor(const std::function<bool(const QString &)> &condition) {
        bool isMet = false;
        bool isAsked = false;
        MainThread::runUntil([&] {
            if (!std::exchange(isAsked, true))
                m_writer.view()->editor()->fetchContent([&](const std::optional<QString> &html) {
                    isMet = html && condition(*html);
                    isAsked = false;
                });
            return isMet;
        });
    }

    /// Milliseconds until the quotation stands in the editor.
    double openLongReply() {
        QElapsedTimer timer;
        timer.start();
        m_driver.mainScreen().detailState().perform(MacMailAction::reply);
        MainThread::runUntil([this] { return m_writer.view() != nullptr; });
        waitForEditor([](const QString &html) { return html.size() > 1'000'000; });
        return double(timer.nsecsElapsed()) / 1e6;
    }

    void close() {
        MainThread::run(restTime);
        m_driver.state().showCompose = false;
        MainThread::runUntil([this] { return !m_writer.view(); });
        MainThread::run(restTime);
    }

    QStringList makeFiles() const {
        QStringList paths;
        for (int number = 0; number < files; ++number) {
            QFile file(m_folder.filePath(u"file %1.bin"_s.arg(number)));
            if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(fileSize, char(number))) != fileSize)
                throw std::runtime_error("a file could not be written");
            paths.append(file.fileName());
        }
        return paths;
    }

    AppDriver &m_driver;
    MessageWriter m_writer;
    ScreenProbe m_screen;
    QTemporaryDir m_folder;
};

} // namespace

void measureWriting(AppDriver &driver) {
    WritingBench bench(driver);
    bench.measureNewMessages();
    driver.selectFolder(Mailbox::longLetterFolder());
    driver.openRow(0);
    MainThread::run(restTime);
    bench.measureReplies();
    bench.measureKeys();
    bench.measureFiles();
}
