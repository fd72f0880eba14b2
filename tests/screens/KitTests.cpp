#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/Contrast.h"
#include "ui/ThemeManager.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/AvatarView.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ClampedLabel.h"
#include "ui/screens/ConfirmationSheet.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/ErrorBanner.h"
#include "ui/screens/FlowLayout.h"
#include "ui/screens/FormField.h"
#include "ui/screens/LayoutTabOrder.h"
#include "ui/screens/MacSidebarHeader.h"
#include "ui/screens/MailThemeBackground.h"
#include "ui/screens/SearchBar.h"
#include "ui/screens/Sheet.h"
#include "ui/screens/SkeletonView.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeLabel.h"
#include "ui/screens/ThemePickerView.h"
#include "ui/screens/Toggle.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStyleOption>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class KitTest : public ScreenTest {
protected:
    void SetUp() override { show(u"light"); }
    ~KitTest() override { show(u"light"); }

    static void show(QStringView themeId) {
        applyTheme(resolvedTheme(themeId, ColorScheme::light));
        deliverQueuedEvents();
    }
};

/// The colour that most of the opaque pixels have.
QColor inkOf(const QPixmap &pixmap) {
    const QImage image = pixmap.toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() == 255)
                return image.pixelColor(x, y);
        }
    }
    return {};
}

TEST_F(KitTest, TabOrderFollowsALayoutWithPartsThatCameLater) {
    QWidget window;
    auto *column = new QWidget;
    auto *last = new QPushButton(u"last"_s);
    auto *layout = new QVBoxLayout(column);
    auto *first = new QPushButton(u"first"_s), *third = new QPushButton(u"third"_s);
    layout->addWidget(first);
    layout->addWidget(third);
    auto *outer = new QVBoxLayout(&window);
    outer->addWidget(column);
    outer->addWidget(last);
    new LayoutTabOrder(column);
    deliverQueuedEvents();
    // One that hands the focus on to a part of itself, as a page of the web engine does.
    auto *compound = new QWidget;
    auto *inner = new QPushButton(u"second"_s, compound);
    compound->setFocusPolicy(Qt::StrongFocus);
    compound->setFocusProxy(inner);
    layout->insertWidget(1, compound);
    compound->setMinimumSize(50, 50);
    showActive(window);
    deliverQueuedEvents();
    first->setFocus();
    EXPECT_EQ(tabOrder(window), (QStringList{u"first"_s, u"second"_s, u"third"_s, u"last"_s}));
    QTest::keyClick(first, Qt::Key_Backtab);
    EXPECT_TRUE(last->hasFocus());
    QTest::keyClick(last, Qt::Key_Backtab);
    EXPECT_TRUE(third->hasFocus());
    QTest::keyClick(third, Qt::Key_Backtab);
    EXPECT_TRUE(inner->hasFocus());
    QTest::keyClick(inner, Qt::Key_Backtab);
    EXPECT_TRUE(first->hasFocus());
}

TEST_F(KitTest, AQuestionShowsWhatReturnWouldAnswer) {
    QWidget window;
    showActive(window);
    auto *sheet = new ConfirmationSheet(u"Really?"_s, {}, &window);
    sheet->addChoice(u"Yes"_s, ButtonRole::destructive, sheet, [] {});
    sheet->open();
    ASSERT_TRUE(spinUntil([&] { return sheet->isActiveWindow(); }));
    auto *focused = sheet->focusWidget();
    ASSERT_TRUE(focused);
    EXPECT_EQ(accessibleName(*focused), u"Cancel"_s);
    QStyleOption option;
    option.initFrom(focused);
    EXPECT_TRUE(showsFocusRing(option));
}

TEST_F(KitTest, EverySymbolOfTheTableIsDrawnInItsColour) {
    // Asking for one loads them all.
    ASSERT_TRUE(hasSymbol(u"envelope.fill"_s));
    const QStringList loaded = QDir(u":/symbols"_s).entryList();
    ASSERT_GT(loaded.size(), 90);
    for (QString name : loaded) {
        name.chop(4);
        EXPECT_EQ(inkOf(symbolPixmap(name, Qt::red, 32, 1)), QColor(Qt::red)) << qPrintable(name);
    }
}

TEST_F(KitTest, AnUnknownSymbolDrawsNothing) {
    EXPECT_FALSE(hasSymbol(u"no.such.symbol"_s));
    EXPECT_FALSE(inkOf(symbolPixmap(u"no.such.symbol"_s, Qt::red, 16, 1)).isValid());
    EXPECT_TRUE(symbolIcon({}).isNull());
}

TEST_F(KitTest, ASymbolHasThePixelsOfItsScreen) {
    const QPixmap sharp = symbolPixmap(u"star"_s, Qt::black, 16, 2);
    EXPECT_EQ(sharp.size(), QSize(32, 32));
    EXPECT_EQ(sharp.deviceIndependentSize(), QSizeF(16, 16));
}

TEST_F(KitTest, IconsFollowTheTheme) {
    const QIcon icon = symbolIcon(u"tray.fill"_s);
    EXPECT_EQ(inkOf(icon.pixmap(32)), AppStyle::theme().textSecondary);
    show(u"dracula");
    EXPECT_EQ(inkOf(icon.pixmap(32)), QColor(0xc0c0d0));
}

TEST_F(KitTest, LabelsFollowTheThemeAndShowMarkupAsItIs) {
    ThemeLabel label(u"<b>no markup</b>"_s, TextStyle::body, TextRole::secondary);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0x475569));
    show(u"dracula");
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0xc0c0d0));
}

TEST_F(KitTest, ControlsAreNamedByTheirTextOrHelp) {
    IconButton icon(u"trash"_s, u"Move to Trash (⌘Delete)"_s);
    EXPECT_EQ(accessibleName(icon), u"Move to Trash (⌘Delete)"_s);
    EXPECT_EQ(icon.toolTip(), u"Move to Trash (⌘Delete)"_s);
    PrimaryButton primary(u"Save Changes"_s);
    EXPECT_EQ(accessibleName(primary), u"Save Changes"_s);
    Chip chip(u"calendar"_s, u"Today"_s);
    EXPECT_EQ(accessibleName(chip), u"Today"_s);
    SearchBar search(u"Search emails…"_s);
    EXPECT_EQ(accessibleName(search), u"Search emails…"_s);
    FormField field(u"Password"_s, u"Enter your password"_s, FormField::Kind::secure);
    EXPECT_EQ(accessibleName(*field.lineEdit()), u"Password"_s);
    AvatarView avatar(32);
    avatar.setPerson(u"Anna Weber"_s);
    EXPECT_EQ(accessibleName(avatar), u"Anna Weber"_s);
}

/// How strongly a button's words stand out from it, and the button from the page.
struct ButtonContrast {
    double words, button;
};

ButtonContrast contrastOf(QPushButton &button) {
    const QImage image = button.grab().toImage();
    const auto fill = image.pixelColor(6, image.height() / 2);
    ButtonContrast contrast{1, contrastRatio(fill, AppStyle::theme().bg)};
    for (int x = 6; x < image.width() - 6; ++x)
        for (int y = 6; y < image.height() - 6; ++y)
            contrast.words = std::max(contrast.words, contrastRatio(image.pixelColor(x, y), fill));
    return contrast;
}

TEST_F(KitTest, ADisabledPrimaryButtonIsDimInEveryTheme) {
    PrimaryButton button(u"Send"_s);
    for (const auto &theme : pickerThemes()) {
        show(theme.id);
        button.setEnabled(true);
        const auto enabled = contrastOf(button);
        button.setEnabled(false);
        const auto disabled = contrastOf(button);
        EXPECT_GT(enabled.button, disabled.button * 1.8) << qPrintable(theme.id);
        EXPECT_LT(disabled.words, 3.2) << qPrintable(theme.id);
        EXPECT_GT(disabled.words, 1.7) << qPrintable(theme.id);
    }
}

TEST_F(KitTest, AnEllipsisInTheMiddleLeavesBothEnds) {
    const auto grabbed = [](const QString &name, Qt::TextElideMode mode) {
        ClampedLabel label(1);
        label.setElideMode(mode);
        label.setText(name);
        label.resize(120, label.sizeHint().height());
        return label.grab().toImage();
    };
    const auto stem = QString(60, u'n');
    EXPECT_NE(grabbed(stem + u".pdf"_s, Qt::ElideMiddle), grabbed(stem + u".zip"_s, Qt::ElideMiddle));
    EXPECT_EQ(grabbed(stem + u".pdf"_s, Qt::ElideRight), grabbed(stem + u".zip"_s, Qt::ElideRight));
}

TEST_F(KitTest, ReturnPressesTheButtonThatHasTheFocus) {
    QWidget window;
    QPushButton *const buttons[] = {new PrimaryButton(u"Save"_s, &window), new LinkButton(u"More"_s, &window)};
    showActive(window);
    for (auto *button : buttons) {
        QSignalSpy pressed(button, &QPushButton::clicked);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
        QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(pressed.count(), 2) << qPrintable(button->text());
    }
}

TEST_F(KitTest, AChipIsMarkedByItsOwnerAlone) {
    Chip chip(u"xmark.circle"_s, u"Clear"_s);
    QSignalSpy pressed(&chip, &Chip::clicked);
    chip.click();
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_FALSE(chip.isChecked());
    chip.setChecked(true);
    EXPECT_TRUE(chip.isChecked());
}

TEST_F(KitTest, AToggleIsSwitchedAnywhereOnItsRowAndByTheSpaceBar) {
    Toggle toggle(u"Enable notifications"_s);
    toggle.resize(400, 32);
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, QPoint(390, 16));
    EXPECT_TRUE(toggle.isChecked());
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, QPoint(200, 16));
    EXPECT_FALSE(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_TRUE(toggle.isChecked());
    EXPECT_EQ(accessibleName(toggle), u"Enable notifications"_s);
}

// Not every window manager heeds which buttons a dialog wants in its title bar.
TEST_F(KitTest, ASheetHasNoTitleBar) {
    QWidget window;
    const Sheet sheet(u"Custom Range"_s, {}, &window);
    EXPECT_TRUE(sheet.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(sheet.windowTitle(), u"Custom Range"_s) << "for a screen reader";
}

TEST_F(KitTest, ASheetClosesWithEscapeAndAnswersReturnWithItsPrimaryButton) {
    QWidget window;
    Sheet sheet(u"Custom Range"_s, u"Pick the period to search."_s, &window);
    QSignalSpy cancelled(sheet.addButton(u"Cancel"_s), &QPushButton::clicked);
    QSignalSpy applied(sheet.addButton(u"Apply"_s, ButtonRole::primary), &QPushButton::clicked);
    sheet.open();
    EXPECT_EQ(sheet.windowModality(), Qt::WindowModal);
    QTest::keyClick(&sheet, Qt::Key_Return);
    EXPECT_EQ(applied.count(), 1);
    EXPECT_EQ(cancelled.count(), 0);
    QTest::keyClick(&sheet, Qt::Key_Escape);
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(KitTest, TheSkyIsPaintedUnderTheThemeSpaceAlone) {
    MailThemeBackground background;
    background.resize(300, 200);
    const auto colors = [&] {
        QSet<QRgb> seen;
        const QImage image = background.grab().toImage();
        for (int x = 0; x < image.width(); ++x)
            seen.insert(image.pixel(x, 20));
        return seen.size();
    };
    EXPECT_EQ(colors(), 1);
    show(u"space");
    EXPECT_GT(colors(), 10);
}

TEST_F(KitTest, SearchBarOffersToClearOnlyWhatIsThere) {
    SearchBar search(u"Search emails…"_s);
    QAction *clear = search.actions().constFirst();
    EXPECT_EQ(clear->toolTip(), u"Clear search"_s);
    EXPECT_FALSE(clear->isVisible());
    QTest::keyClicks(&search, u"invoice"_s);
    EXPECT_TRUE(clear->isVisible());
    clear->trigger();
    EXPECT_TRUE(search.text().isEmpty());
    EXPECT_FALSE(clear->isVisible());
}

TEST_F(KitTest, SearchBarSubmitsWithReturnAndClearsWithEscape) {
    SearchBar search(u"Search emails…"_s);
    QSignalSpy submitted(&search, &QLineEdit::returnPressed);
    search.setText(u"invoice"_s);
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_EQ(submitted.count(), 1);
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_TRUE(search.text().isEmpty());
}

TEST_F(KitTest, FormFieldKeepsTheCursorWhenItsTextIsSetAgain) {
    FormField field(u"Username"_s);
    field.setText(u"anna"_s);
    field.lineEdit()->setCursorPosition(1);
    field.setText(u"anna"_s);
    EXPECT_EQ(field.lineEdit()->cursorPosition(), 1);
}

TEST_F(KitTest, ErrorBannerTakesNoRoomWithoutAnError) {
    QWidget form;
    auto *banner = new ErrorBanner(&form);
    EXPECT_TRUE(banner->isHidden());
    banner->setError(u"Session expired. Please log in again."_s);
    EXPECT_FALSE(banner->isHidden());
    EXPECT_EQ(accessibleName(*banner), u"Session expired. Please log in again."_s);
    banner->setError(std::nullopt);
    EXPECT_TRUE(banner->isHidden());
}

TEST_F(KitTest, EmptyStateHasAButtonOnlyWhenTold) {
    EmptyStateView view({u"tray"_s, u"Message moved"_s, u"Select another email to read it"_s});
    auto *button = view.findChild<PrimaryButton *>();
    EXPECT_TRUE(button->isHidden());
    view.setButton(u"Try Again"_s);
    EXPECT_FALSE(button->isHidden());
    QSignalSpy pressed(&view, &EmptyStateView::buttonPressed);
    button->click();
    EXPECT_EQ(pressed.count(), 1);
}

TEST_F(KitTest, SkeletonRestsWhileItIsNotSeen) {
    SkeletonView skeleton;
    EXPECT_FALSE(skeleton.isShimmering());
    skeleton.show();
    EXPECT_TRUE(skeleton.isShimmering());
    skeleton.hide();
    EXPECT_FALSE(skeleton.isShimmering());
}

TEST_F(KitTest, SidebarHeaderStartsAMessage) {
    MacSidebarHeader header;
    auto *compose = header.findChild<MacSidebarAction *>();
    EXPECT_EQ(compose->text(), u"Compose"_s);
    EXPECT_EQ(compose->toolTip(), u"New Message (⌘N)"_s);
    QSignalSpy requested(&header, &MacSidebarHeader::composeRequested);
    compose->click();
    EXPECT_EQ(requested.count(), 1);
}

TEST_F(KitTest, FlowLayoutWrapsSkipsHiddenWidgetsAndKnowsItsHeight) {
    QWidget host;
    auto *layout = new FlowLayout(4, &host);
    QList<QWidget *> children;
    for (int i = 0; i < 4; ++i) {
        children.append(new QWidget);
        children.last()->setFixedSize(40, 20);
        layout->addWidget(children.last());
    }
    children[1]->hide();
    host.resize(90, 100);
    host.show();
    EXPECT_EQ(children[0]->pos(), QPoint(0, 0));
    EXPECT_EQ(children[2]->pos(), QPoint(44, 0));
    EXPECT_EQ(children[3]->pos(), QPoint(0, 24));
    EXPECT_EQ(layout->heightForWidth(90), 44);
    EXPECT_EQ(layout->heightForWidth(200), 20);
}

TEST_F(KitTest, ThemePickerMarksTheCurrentThemeAndPutsOnTheChosenOne) {
    UserDefaults defaults(temporaryPath(u"defaults.json"_s));
    ThemeManager manager(defaults);
    ThemePickerView picker(&manager);
    const auto cells = picker.findChildren<ThemePickerCell *>();
    ASSERT_EQ(cells.size(), 26);
    EXPECT_TRUE(cells[0]->isChecked());
    EXPECT_EQ(accessibleName(*cells[2]), u"Deep Space"_s);
    cells[3]->click();
    deliverQueuedEvents();
    EXPECT_EQ(manager.currentThemeId(), u"amoled"_s);
    EXPECT_TRUE(cells[3]->isChecked());
    EXPECT_FALSE(cells[0]->isChecked());
    cells[3]->click();
    EXPECT_TRUE(cells[3]->isChecked()) << "pressed again it stays chosen";
    manager.setCurrentThemeId(u"nord"_s);
    deliverQueuedEvents();
    EXPECT_FALSE(cells[3]->isChecked());
}

} // namespace
