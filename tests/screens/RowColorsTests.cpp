#include "ui/screens/RowColors.h"

#include "ui/Themes.h"

#include <gtest/gtest.h>

namespace {

class RowColorsTest : public testing::TestWithParam<ThemeDefinition> {};

} // namespace

TEST_P(RowColorsTest, LetAllTextsBeRead) {
    for (const QStyle::State state : {QStyle::State_None, QStyle::State_MouseOver, QStyle::State_Selected}) {
        const RowColors colors(state, GetParam());
        EXPECT_GE(contrastRatio(colors.text, colors.background), 4.5);
        EXPECT_GE(contrastRatio(colors.secondary, colors.background), 4.5);
        EXPECT_GE(contrastRatio(colors.accent, colors.background), 4.5);
    }
}

TEST_P(RowColorsTest, TellASelectedRowFromTheOthers) {
    const RowColors selected(QStyle::State_Selected, GetParam());
    const RowColors plain(QStyle::State_None, GetParam());
    EXPECT_GE(contrastRatio(selected.background, plain.background), 1.05);
}

INSTANTIATE_TEST_SUITE_P(, RowColorsTest, testing::ValuesIn(pickerThemes()),
                         [](const auto &theme) { return QString(theme.param.id).remove(u'-').toStdString(); });
