#pragma once

#include <QString>

/// The whole number of pixels that a size text means: "px" is dropped, an empty text gives -1, one
/// that is no number 0. What no int holds is clamped.
int wholeMeasure(const QString& text);

/// The number that a region's measure text begins with ("50%" is 50): "px" is dropped, an empty text
/// gives -1, one that does not begin with a number 0. What no float holds is clamped.
float measure(const QString& text);
