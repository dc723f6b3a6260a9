#pragma once

#include <QString>

/// A size text as whole pixels: "px" is dropped, an empty text gives -1, a text that is no number 0. Clamped
/// to the range of int.
int wholeMeasure(const QString& text);

/// The leading number of a region's measure ("50%" is 50): "px" is dropped, an empty text gives -1, a text
/// without a leading number 0. Clamped to the range of float.
float measure(const QString& text);
