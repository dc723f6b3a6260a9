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
    /// What a message of the usual greatest size may take.
    double longestMilliseconds = 500;
};

/// All kinds of bad input that are known to have hurt a decoder, this one or another.
std::vector<Shape> badShapes();

/// All that are known to have hurt a program that draws messages.
std::vector<Shape> badPictures();
