#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

/// One kind of bad input, and what a receiver would do with it.
struct Shape {
    const char* name;
    std::function<QByteArray(int)> make; ///< about that many octets of it
    std::function<void(const QByteArray&)> receive;
    /// Whether it is made of body parts, whose number is bounded: then it may grow faster up to there.
    bool boundedByParts = false;
};

/// All kinds of bad input that are known to have hurt a decoder, this one or another.
std::vector<Shape> badShapes();
