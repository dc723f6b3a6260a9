// Times the reading of N and 4N octets of each kind of bad input: hostile [N [WORDS]], where only the kinds
// with WORDS in their name are read.
//
// The exit status is 1 when four times the input takes more than six times as long (if that is long enough to
// measure), or when a message of the usual largest size takes more than half a second (drawing it three).

#include "bench/hostile/shapes.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <malloc.h>

namespace {

constexpr int usualSize = 75 * 1024; // a quarter of the largest message
constexpr double greatestRatio = 6;
constexpr double measurable = 5; // milliseconds; ratios of shorter times mean nothing

/// The shortest time of several rounds.
double milliseconds(const Shape& shape, int octets) {
    const QByteArray input = shape.make(octets);
    double best = 1e9;
    double total = 0;
    for (int round = 0; round < 20 && (round < 3 || total < 200); ++round) {
        const std::clock_t begin = std::clock(); // of this process only
        shape.receive(input);
        const double took = 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        best = std::min(best, took);
        total += took;
    }
    return best;
}

} // namespace

int main(int argc, char** argv) {
    const int octets = std::max(argc > 1 ? std::atoi(argv[1]) : usualSize, 1024);
    // memory once used is kept, so that the kernel's time for returning it is not measured
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    bool fine = true;
    std::printf("%-52s %10d %10d %7s\n", "octets", octets, 4 * octets, "ratio");
    std::vector<Shape> shapes = badShapes();
    for (Shape& shape : badPictures())
        shapes.push_back(std::move(shape));
    for (const Shape& shape : shapes) {
        if (argc > 2 && !std::strstr(shape.name, argv[2]))
            continue;
        double once = 1e9, fourTimes = 1e9, ratio = 0;
        bool grows = true;
        for (int attempt = 0; grows && attempt < 5; ++attempt) { // a busy machine distorts ratios
            once = std::min(once, milliseconds(shape, octets));
            fourTimes = std::min(fourTimes, milliseconds(shape, 4 * octets));
            ratio = fourTimes / std::max(once, 0.001);
            grows = ratio > greatestRatio && fourTimes > measurable && !shape.boundedByParts;
        }
        const bool slow = octets <= usualSize && fourTimes > shape.longestMilliseconds;
        std::printf("%-52s %7.2f ms %7.2f ms %7.1f%s\n", shape.name, once, fourTimes, ratio,
                    grows || slow ? "  <- too much" : "");
        std::fflush(stdout);
        fine = fine && !grows && !slow;
    }
    return fine ? 0 : 1;
}
