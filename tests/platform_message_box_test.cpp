#include "tests/testing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace {

/// An application without a screen that records its modal boxes. Closes each box at once, by the button with
/// number `press`, or as if with Escape when there is none.
struct Screen {
    explicit Screen(int press) {
        QObject::connect(&timer, &QTimer::timeout, [this, press] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            shown += box->text();
            icon = box->iconPixmap().size();
            const auto buttons = box->buttons();
            for (const QAbstractButton* button : buttons)
                shown += button->text();
            press < buttons.size() ? buttons.at(press)->click() : box->reject();
        });
        timer.start(20);
    }
    bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 0;
    QApplication application{argc, nullptr};
    QTimer timer;
    QStringList shown;
    QSize icon;
};

TEST(MessageBox, logsWithoutAnApplicationThatHasWindows) {
    const Log log;
    EXPECT_EQ(LumMessageBox::information(nullptr, QImage(), "Hello <b>you</b>", "ok"), -1);
    MMS_COMP_Util::noFlashMsgBox();
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    EXPECT_EQ(LumMessageBox::information(nullptr, QImage(), "Hello", "ok"), -1);
    EXPECT_EQ(Log::lines.join('|'), "Hello <b>you</b>|Memory is full, Action is not allowed!|Hello");
}

TEST(MessageBox, showsTheNoticeAndTellsTheButtonPressed) {
    {
        const Screen screen(0);
        MMS_COMP_Util::noFlashMsgBox();
        EXPECT_EQ(screen.shown.join('|'), "Memory is full, Action is not allowed!|ok");
        EXPECT_EQ(screen.icon, QSize(32, 32));
    }
    const std::tuple<int, int, int, const char*> rows[] = {
        {1, 3, 1, "Sure?|a|b|c"}, {0, 1, 0, "Sure?|a"}, {9, 3, -1, "Sure?|a|b|c"}};
    for (const auto& [press, buttons, answer, shown] : rows) {
        const Screen screen(press);
        EXPECT_EQ(LumMessageBox::information(nullptr, QImage(), "Sure?", "a", "b", "c", buttons), answer);
        EXPECT_EQ(screen.shown.join('|'), shown);
    }
}

TEST(Icons, unknownOnesAreNull) {
    for (const char* unknown : {"", "No_Such.gif", "../icons", "/etc/passwd"})
        EXPECT_TRUE(RES_ICON_Reader::getIcon(unknown).isNull()) << unknown;
}

} // namespace
