#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

/// A kind of bad input, and how a receiver reads it.
struct Shape {
    const char* name;
    std::function<QByteArray(int)> make; ///< input of about that many octets
    std::function<void(const QByteArray&)> receive;
    /// Whether it is made of body parts, whose number is limited: below the limit it may grow faster.
    bool boundedByParts = false;
    /// The longest time for a message of the usual largest size.
    double longestMilliseconds = 500;
};

/// All kinds of bad input that are known to slow down a decoder.
std::vector<Shape> badShapes();

/// All that are known to slow down drawing.
std::vector<Shape> badPictures();
