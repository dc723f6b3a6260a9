#include "tests/attack_pictures.h"
#include "tests/tool_runner.h"

#include <QBuffer>
#include <QColor>
#include <QImage>

#include <sys/resource.h>

namespace {

/// The file of a picture.
QByteArray file(const QImage& image, const char* format) {
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format));
    return buffer.data();
}

/// A picture of that size, red on the left and blue on the right.
QByteArray halves(int width, int height) {
    QImage image(2, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.setPixelColor(1, 0, Qt::blue);
    return file(image.scaled(width, height), "PNG");
}

/// A picture with that many markers of further scans behind its end.
QByteArray scans(int count) {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    return file(image, "JPEG") + octets("FF DA 00 02").repeated(count - 1);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__clang__) // sanitizers need memory of their own
constexpr long MOST_KILOBYTES = std::numeric_limits<long>::max();
#else
constexpr long MOST_KILOBYTES = 300 * 1024;
#endif

class RenderTest : public ToolTest {
protected:
    /// Writes a message with that presentation and a few parts, and renders it.
    Outcome render(const QByteArray& smil, const QString& output, const QStringList& options = {}) {
        const QByteArrayList parts = {
            entry(octets("A0"), octets("8E") + zeroed("wide.png"), halves(240, 80)),
            entry(octets("A0"), octets("8E") + zeroed("bad.png"), halves(8, 8).left(40)),
            entry(octets("9E"), octets("8E") + zeroed("scans.jpg"), scans(200)),
            entry(octets("9E"), octets("8E") + zeroed("most.jpg"), scans(199)),
            entry(octets("83 81 EA"), octets("8E") + zeroed("t.txt"),
                  "</p><script>alert(1)</script> & \"more\""),
            entry(zeroed("audio/midi"), octets("8E") + zeroed("s.mid"), "MThd"),
            // 9 by 2 pixels, a white and a black row
            entry(octets("A1"), octets("8E") + zeroed("w.wbmp"), octets("00 00 09 02 FF 80 00 00")),
        };
        write("m.mms",
              octets("8C 84 8D 90 96") + zeroed("<img src=x onerror=alert(2)>") + related(smil, parts));
        return lummms(QStringList{"render", path("m.mms"), "--force", "-o", path(output)} + options);
    }
    QColor pixel(const QImage& image, int slide, int x, int y) const {
        return image.pixelColor(6 + slide * 132 + x, 6 + y); // with --scale 1
    }
};

const QByteArray LAYOUT =
    "<smil><head><layout><root-layout width=\"120\" height=\"160\" "
    "background-color=\"lime\"/>"
    "<region id=\"text\" left=\"0\" top=\"0\" width=\"120\" height=\"160\"/>"
    "<region id=\"image\" left=\"0\" top=\"160\" width=\"120\" height=\"160\" fit=\"FIT\"/>"
    "</layout></head><body>";
const QByteArray END = "</body></smil>";

TEST_F(RenderTest, PicturesFillTheirRegionByItsFit) {
    using Points = QList<std::tuple<int, int, QColor>>;
    const QColor red(Qt::red), blue(Qt::blue), lime(0, 255, 0);
    const std::pair<const char*, Points> rows[] = {
        {"hidden", {{60, 40, red}, {118, 78, red}, {60, 82, lime}}},
        {"fill", {{30, 155, red}, {90, 155, blue}, {118, 2, blue}}},
        {"meet", {{30, 20, red}, {90, 38, blue}, {60, 60, lime}}},
        {"slice", {{30, 155, red}, {118, 155, red}, {60, 2, red}}},
    };
    for (const auto& [fit, points] : rows) {
        const QByteArray smil = QByteArray(LAYOUT).replace("FIT", fit) +
                                "<par dur=\"1s\"><img src=\"wide.png\" region=\"image\"/></par>" + END;
        const Outcome outcome = render(smil, "s.png", {"--scale", "1"});
        ASSERT_EQ(outcome.status, 0) << outcome.err.constData();
        const QImage image(path("s.png"));
        EXPECT_EQ(image.width(), 132);
        for (const auto& [x, y, color] : points)
            EXPECT_EQ(pixel(image, 0, x, 160 + y), color) << fit << ' ' << x << ',' << y;
    }
}

TEST_F(RenderTest, SlidesStandSideBySideWithTextsAndPlaceholders) {
    const Outcome outcome = render(LAYOUT +
                                       "<par dur=\"1s\"><text src=\"t.txt\" region=\"text\"/>"
                                       "<img src=\"bad.png\" region=\"image\"/></par>"
                                       "<par><img src=\"missing.png\" region=\"image\"/>"
                                       "<audio src=\"s.mid\"/></par>"
                                       "<par><img src=\"w.wbmp\" region=\"image\"/></par>"
                                       "<par><img src=\"scans.jpg\" region=\"image\"/></par>"
                                       "<par><img src=\"most.jpg\" region=\"image\"/></par>" +
                                       END,
                                   "s.png", {"--scale", "1"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.err.contains("1 picture left out") && outcome.err.count('\n') == 1)
        << outcome.err.constData();
    const QImage image(path("s.png"));
    ASSERT_EQ(image.width(), 5 * 132);
    int inked = 0;
    for (int y = 2; y < 60; ++y)
        for (int x = 2; x < 118; ++x)
            inked += pixel(image, 0, x, y) != QColor(0, 255, 0);
    EXPECT_GT(inked, 200) << "the text is drawn";
    for (const int slide : {0, 1, 3}) // broken, missing, too many scans
        EXPECT_EQ(pixel(image, slide, 20, 180), QColor(238, 238, 238)) << "a placeholder in slide " << slide;
    EXPECT_GT(pixel(image, 4, 4, 164).red(), 250) << "as many scans as there are left";
    EXPECT_EQ(pixel(image, 2, 4, 160), QColor(Qt::white));
    EXPECT_EQ(pixel(image, 2, 4, 161), QColor(Qt::black));
}

TEST_F(RenderTest, SlidesAreChosenAndThoseWithoutRoomAreCounted) {
    const QByteArray smil = LAYOUT + QByteArray("<par><audio src=\"s.mid\"/></par>").repeated(35) + END;
    const std::tuple<const char*, int, const char*> rows[] = {
        {"1-35", 30, "5 further slides: draw them with --slides 31-35"}, {"31-99", 5, ""}, {"7", 1, ""}};
    for (const auto& [range, drawn, words] : rows) {
        const Outcome outcome = render(smil, "s.png", {"--slides", range, "--scale", "1"});
        EXPECT_TRUE(outcome.status == 0 && outcome.err.contains(words)) << outcome.err.constData();
        EXPECT_EQ(QImage(path("s.png")).width(), drawn * 132) << range;
    }
    for (const char* range : {"0-3", "3-2", "36", "x", "1-", "99999999999"})
        expectRefused({"render", path("m.mms"), "-o", path("s.png"), "--slides", range}, "--slides");
}

TEST_F(RenderTest, ThePageHoldsEverythingOnceAndNoMarkupOfTheMessage) {
    const QByteArray slide = "<par dur=\"1s\"><text src=\"t.txt\" region=\"text\"/>"
                             "<img src=\"wide.png\" region=\"image\"/><audio src=\"s.mid\"/></par>";
    const Outcome outcome =
        render(LAYOUT + slide + slide + "<par><img src=\"bad.png\"/></par>" + END, "s.html");
    ASSERT_EQ(outcome.status, 0) << outcome.err.constData();
    const QByteArray page = read("s.html");
    EXPECT_EQ(page.count("<section class=\"slide\""), 3);
    EXPECT_EQ(page.count("<script"), 1) << "the page's own";
    EXPECT_EQ(page.count("<img"), 0) << "the script makes them";
    EXPECT_EQ(page.count("class=\"save\""), 8) << "each part, the presentation too";
    for (const QByteArray& once :
         {halves(240, 80).toBase64(), QByteArray("alert(1)"), QByteArray("TVRoZA=="), scans(200).toBase64()})
        EXPECT_EQ(page.count(once), 1) << once.left(20).constData();
    for (const char* piece :
         {"&lt;img src=x onerror=alert(2)&gt;</title>",
          "&lt;/p&gt;&lt;script&gt;alert(1)&lt;/script&gt; &amp; &quot;more&quot;", "default-src 'none'"})
        EXPECT_TRUE(page.contains(piece)) << piece;
}

TEST_F(RenderTest, AttacksTakeLittleMemoryAndRoom) {
    constexpr int size = 100 * 1024;
    for (const RenderAttack& attack : renderAttacks()) {
        write("m.mms", attack.make(size));
        for (const char* output : {"s.png", "s.html"}) {
            const Outcome outcome =
                lummms({"render", path("m.mms"), "--scale", "1", "--force", "-o", path(output)});
            EXPECT_EQ(outcome.status, 0) << attack.name << ' ' << outcome.err.constData();
            EXPECT_LE(outcome.err.count('\n'), 2) << outcome.err.constData();
        }
        EXPECT_LE(read("s.html").size(), 2 * size + 500'000) << attack.name;
    }
    rusage used;
    ASSERT_EQ(getrusage(RUSAGE_CHILDREN, &used), 0);
    EXPECT_LE(used.ru_maxrss, MOST_KILOBYTES);
}

TEST_F(RenderTest, APictureIsDecodedWithoutItsAncillaryChunks) {
    const QByteArray plain = halves(120, 160);
    const QByteArray text = attack::chunk(raw("zTXtk\0\0") + attack::zeros(1000));
    const QByteArray smil = LAYOUT + "<par><img src=\"p\" region=\"image\"/></par>" + END;
    for (const QByteArray& png : {plain.first(33) + text + plain.sliced(33), // before the pixels
                                  plain.chopped(12) + text + plain.last(12), // behind them
                                  plain + text, plain + octets("FF FF FF FF")}) {
        write("m.mms",
              octets("8C 84 8D 90") + related(smil, {entry(octets("A0"), octets("8E") + zeroed("p"), png)}));
        const Outcome outcome =
            lummms({"render", path("m.mms"), "--scale", "1", "--force", "-o", path("s.png")});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(pixel(QImage(path("s.png")), 0, 30, 200), QColor(Qt::red));
    }
}

TEST_F(RenderTest, RegionsStandWhereTheSenderPutThem) {
    const QByteArray percent = "<smil><head><layout><root-layout width=\"200\" height=\"100\"/>"
                               "<region id=\"a\" left=\"50%\" top=\"20%\" width=\"50%\" height=\"80%\" "
                               "fit=\"fill\"/><region id=\"b\"/><region "
                               "id=\"c\"/></layout></head><body><par><img src=\"wide.png\" region=\"a\"/>"
                               "</par></body></smil>";
    ASSERT_EQ(render(percent, "s.png", {"--scale", "1"}).status, 0);
    const QImage image(path("s.png"));
    EXPECT_EQ(image.width(), 212);
    EXPECT_EQ(pixel(image, 0, 90, 50), QColor(Qt::white));
    EXPECT_EQ(pixel(image, 0, 110, 22), QColor(Qt::red));
    EXPECT_EQ(pixel(image, 0, 190, 95), QColor(Qt::blue));
    ASSERT_EQ(render(percent, "s.png", {"--scale", "1", "--phone"}).status, 0);
    EXPECT_EQ(QImage(path("s.png")).width(), 132);
}

} // namespace
