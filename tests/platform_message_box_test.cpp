#include "platform/ui/icon_reader.h"
#include "platform/ui/message_box.h"
#include "tests/octets.h"
#include "util/mms_comp_util.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QScopeGuard>
#include <QTimer>

namespace {

/// The error log's lines while it lives.
class LogWatch {
public:
    LogWatch() {
        lines.clear();
        former_ = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& line) {
            if (type == QtCriticalMsg)
                lines += line;
        });
    }
    ~LogWatch() { qInstallMessageHandler(former_); }
    static inline QStringList lines;

private:
    QtMessageHandler former_;
};

/// An application without a screen, and what its modal boxes showed. Every box is closed at once, by
/// its button number `press`, or as if with the Escape key when there is none such.
struct Screen {
    explicit Screen(int press) {
        QObject::connect(&timer, &QTimer::timeout, [this, press] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            shown += box->text();
            icon = box->iconPixmap().size();
            QStringList labels;
            for (const QAbstractButton* button : box->buttons())
                labels += button->text();
            shown += labels;
            if (press >= 0 && press < box->buttons().size())
                box->buttons().at(press)->click();
            else
                box->reject();
        });
        timer.start(20);
    }
    int argc = 1;
    char name[5] = "test";
    char* argv[2] = {name, nullptr};
    QApplication application{argc, argv};
    QTimer timer;
    QStringList shown;
    QSize icon;
};

class MessageBox : public testing::Test {
protected:
    static void SetUpTestSuite() { qputenv("QT_QPA_PLATFORM", "offscreen"); }
};

TEST_F(MessageBox, logsWithoutAnApplication) {
    const LogWatch log;
    EXPECT_EQ(LumMessageBox::information(nullptr, QImage(), "Hello <b>you</b>", "ok"), -1);
    MMS_COMP_Util::noFlashMsgBox();
    EXPECT_EQ(log.lines.join('|'), "Hello <b>you</b>|Memory is full, Action is not allowed!");
}

TEST_F(MessageBox, logsInAProgramWithoutWindows) {
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    const LogWatch log;
    EXPECT_EQ(LumMessageBox::information(nullptr, QImage(), "Hello", "ok"), -1);
    EXPECT_EQ(log.lines.join('|'), "Hello");
}

TEST_F(MessageBox, showsTheMemoryNotice) {
    const LogWatch log;
    const Screen screen(0);
    MMS_COMP_Util::noFlashMsgBox();
    EXPECT_EQ(screen.shown.join('|'), "Memory is full, Action is not allowed!|ok");
    EXPECT_EQ(screen.icon, QSize(32, 32));
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST_F(MessageBox, tellsTheButtonPressed) {
    const struct {
        const char* name;
        int press;
        int buttons;
        int answer;
        const char* shown;
    } rows[] = {{"one of three", 1, 3, 1, "Sure?|a|b|c"},
                {"unused labels", 0, 1, 0, "Sure?|a"},
                {"no button pressed", 9, 3, -1, "Sure?|a|b|c"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Screen screen(row.press);
        EXPECT_EQ(LumMessageBox::information(nullptr, QImage(), "Sure?", "a", "b", "c", row.buttons),
                  row.answer);
        EXPECT_EQ(screen.shown.join('|'), row.shown);
    }
}

TEST(Icons, areThereByName) {
    EXPECT_EQ(RES_ICON_Reader::getIcon("Dialog_Error.gif", true).size(), QSize(32, 32));
    for (const char* unknown : {"", "No_Such.gif", "../icons", "/etc/passwd"})
        EXPECT_TRUE(RES_ICON_Reader::getIcon(unknown).isNull()) << unknown;
}

} // namespace
