#include "bench/hostile/shapes.h"
#include "tests/attack_pictures.h"
#include "tools/lummms/draw/draw.h"
#include "tools/lummms/message.h"

#include <QGuiApplication>

#include <limits>

namespace {

constexpr int LARGEST_SCALE = 4;
constexpr SlideRange ALL_SLIDES = {1, std::numeric_limits<int>::max()};
constexpr double LONGEST_MILLISECONDS = 3000;

void prepareDrawing() {
    static char name[] = "hostile";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    static const bool isPrepared = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(count, arguments);
    Q_UNUSED(isPrepared);
}

/// Draws a message like `lummms render`, as picture and as page.
void drawMessage(const QByteArray& octets) {
    prepareDrawing();
    Message message;
    message.read(octets);
    message.readPresentationWithGaps();
    slidesAsPng(message, ALL_SLIDES, LARGEST_SCALE);
    slidesAsPage(message, ALL_SLIDES);
}

} // namespace

std::vector<Shape> badPictures() {
    std::vector<Shape> shapes;
    for (const RenderAttack& attack : renderAttacks())
        shapes.push_back({attack.name, attack.make, drawMessage, true, LONGEST_MILLISECONDS});
    return shapes;
}
