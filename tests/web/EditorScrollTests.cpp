#include "web/EditorWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString longText = u"<p>line</p>"_s.repeated(60);

void paste(EditorWindow &window, const QString &text, const QString &html = {}) {
    auto *data = new QMimeData;
    data->setText(text);
    if (!html.isEmpty())
        data->setHtml(html);
    QGuiApplication::clipboard()->setMimeData(data);
    window.editor->paste();
}

QImage tallImage() {
    QImage image(400, 2000, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

struct Insertion {
    const char *name;
    void (*take)(EditorWindow &window);
};

const Insertion insertions[] = {
    {"Text", [](EditorWindow &window) { paste(window, u"line\n"_s.repeated(60)); }},
    {"HTML", [](EditorWindow &window) { paste(window, u"line"_s, longText); }},
    {"HTMLWithStyleSheets",
     [](EditorWindow &window) { paste(window, u"line"_s, u"<style>p { color: red }</style>"_s + longText); }},
    {"HTMLThatEndsWithAnEmptyLine",
     [](EditorWindow &window) { paste(window, u"line"_s, u"<style></style>"_s + longText + u"<p><br></p>"_s); }},
    {"Image",
     [](EditorWindow &window) {
         QGuiApplication::clipboard()->setImage(tallImage());
         window.editor->paste();
     }},
    {"Rules",
     [](EditorWindow &window) {
         for (int rule = 0; rule < 60; ++rule)
             window.ref->run(u"insertHR();"_s);
     }},
};

class EditorScroll : public testing::TestWithParam<Insertion> {
protected:
    bool isTrue(const QString &condition) { return window.evaluate(condition).toBool(); }

    EditorWindow window;
};

std::string insertionName(const testing::TestParamInfo<Insertion> &info) {
    return info.param.name;
}

} // namespace

TEST_P(EditorScroll, LeadsToTheEndOfWhatWasPutIn) {
    GetParam().take(window);
    EXPECT_TRUE(spinUntil([this] { return isTrue(u"editor.scrollHeight > innerHeight + 300"_s); }));
    EXPECT_TRUE(spinUntil([this] { return isTrue(u"editor.getBoundingClientRect().bottom < innerHeight + 40"_s); }));
}

INSTANTIATE_TEST_SUITE_P(, EditorScroll, testing::ValuesIn(insertions), insertionName);

TEST(EditorScrollBar, StandsBesideALongTextOnly) {
    EditorWindow window;
    const auto width = u"innerWidth - document.documentElement.clientWidth"_s;
    EXPECT_EQ(window.evaluate(width), 0);
    window.fill(longText);
    EXPECT_EQ(window.evaluate(width), 12);
}
