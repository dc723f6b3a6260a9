#include "octets.h"

#include "smil/model/color.h"
#include "smil/model/smil_time.h"
#include "smil/parser/smil_parser.h"

namespace {

using Parser = MMS_COMP_SMILParser;

constexpr int UNREAD = 5000;

TEST(ValueSyntax, Durations) {
    const struct {
        QString text;
        int milliseconds;
    } rows[] = {{"", -1},
                {"indefinite", -2},
                {"Indefinite", UNREAD},
                {"5", UNREAD},
                {"7s", 7000},
                {"500ms", 500},
                {"0.5s", 500},
                {"1.5s", 1500},
                {"2.9ms", 2},
                {"-2.9ms", -2},
                {"2min", 120000},
                {"1h", 3600000},
                {"-2s", -2000},
                {" 7s", 7000},
                {"7s ", UNREAD},
                {"7S", UNREAD},
                {"s", UNREAD},
                {"min", UNREAD},
                {"1m", UNREAD},
                {"0.1h", 360000},
                {"16777.217s", 16777216},
                {"1:05.250", 65250},
                {"1:05", UNREAD},
                {"1:.5", UNREAD},
                {"1:05.", UNREAD},
                {":05.5", UNREAD},
                {"0:01.5", 1005},
                {"0:01.500", 1500},
                {"0:01.50099", 1500},
                {"0:75.0", 75000},
                {"0:01.5s", UNREAD},
                {"-1:00.0", -60000},
                {"0:0:05.0", UNREAD},
                {"a:b:c:d", UNREAD},
                {"nans", UNREAD},
                {"infs", 2147483647},
                {"-infh", -2147483647 - 1},
                {"3e9ms", 2147483647},
                {"2147483648ms", 2147483647},
                {"-1e30min", -2147483647 - 1},
                {"2147483647:0.0", 2147483647},
                {"-2147483648:0.0", -2147483647 - 1},
                {"2147483648:0.0", UNREAD}};
    for (const auto& row : rows)
        EXPECT_EQ(Parser::parseDur(row.text), row.milliseconds) << qPrintable(row.text);
}

TEST(ValueSyntax, BeginAndEndTimes) {
    const struct {
        QString text;
        int type;
        QString id;
        int value;
    } rows[] = {{"", 2, "old", 7},
                {"0s", 0, "", 0},
                {"3s", 0, "", 3000},
                {"12", 3, "", 7},
                {"indefinite", 3, "", 7},
                {"id(t1)(begin)", 1, "t1", 0},
                {"id(t1)(end)", 1, "t1", -1},
                {"id(t1)(endbegin)", 1, "t1", 0},
                {"id(t1)(1.5s)", 1, "t1", 1500},
                {"id(t1)(-1ms)", 1, "t1", -1},
                {"id(img1)(300ms)", 1, "img1", 300},
                {"id(a)x1:02.003y", 1, "a", 62003},
                {"id()(begin)", 1, "", 0},
                {"id(begin)", 3, "begin", 7},
                {"id(t1)", 3, "t1", 7},
                {"id(t1)(", 3, "t1", 7},
                {"id(t1", 3, "t1", 7},
                {"ID(t1)(begin)", 3, "", 7},
                {"id(a)(nans)", 3, "a", 7}};
    for (const auto& row : rows) {
        MMS_COMP_SMIL_TIME time{MMS_COMP_SMIL_TIME_OFFSET, "old", 7};
        Parser::parseTime(row.text, &time);
        EXPECT_EQ(time.type, row.type) << qPrintable(row.text);
        EXPECT_EQ(time.id, row.id) << qPrintable(row.text);
        EXPECT_EQ(time.value, row.value) << qPrintable(row.text);
    }
    Parser::parseTime("3s", nullptr);
}

TEST(ValueSyntax, Colours) {
    const QColor old(1, 2, 3);
    const struct {
        QString text;
        int kind;
        QString name;
        QColor color;
    } rows[] = {{"", 0, "old", old},
                {" \t", 0, "old", old},
                {" white ", 1, "white", QColor(255, 255, 255)},
                {"gray", 1, "gray", QColor(128, 128, 128)},
                {"silver", 1, "silver", QColor(192, 192, 192)},
                {"White", 3, "old", old},
                {"orange", 3, "old", old},
                {"#FF8000", 2, "", QColor(255, 128, 0)},
                {"\n#ff0800", 2, "", QColor(255, 8, 0)},
                {"#f80", 2, "", QColor(15, 8, 0)},
                {"#fff", 2, "", QColor(15, 15, 15)},
                {"#ff80", 3, "old", old},
                {"#", 3, "old", old},
                {"#ggg", 3, "", old},
                {"#12345g", 3, "", old},
                {"#-10000", 3, "", old},
                {"#+1+2+3", 2, "", QColor(1, 2, 3)},
                {"#++0000", 3, "", old},
                {"rgb(1,2,3)", 3, "", old},
                {"rgb(1,2,3,)", 3, "", old},
                {"rgb(", 3, "", old},
                {"rgb(1%,2%,3%)", 3, "old", old},
                {"RGB(1,2,3)", 3, "old", old}};
    for (const auto& row : rows) {
        MMS_COMP_COLOR color{9, "old", old};
        Parser::parseColor(row.text, color);
        EXPECT_EQ(color.kind, row.kind) << qPrintable(row.text);
        EXPECT_EQ(color.text, row.name) << qPrintable(row.text);
        EXPECT_EQ(color.color, row.color) << qPrintable(row.text);
    }
}

} // namespace
