#pragma once

#include <QString>

#include <functional>

/// Whether a name is in use; need not check that it is usable.
using NameTaken = std::function<bool(const QString&)>;

/// The most characters of base and extension of a generated name. With a dot and a number it stays within
/// what isUsableName() allows.
constexpr qsizetype longestMadeName = 88;

/// Whether content can have that name: a valid URL of less than 100 characters.
bool isUsableName(const QString& name);

/// The base, cut so that it and the extension have at most longestMadeName characters.
QString cutBase(const QString& base, const QString& ext);

/// The suffix of a file name: a dot and the extension, or nothing for an empty one.
QString dotted(const QString& ext);

/// The first of before0after, before1after, ... that is not taken; null when such names are not usable. With
/// `number` the search starts at that number, which is set to where it ended.
QString numberedName(const QString& before, const QString& after, const NameTaken& taken,
                     int* number = nullptr);

/// A usable name that is not taken: `first`, or else base_0.ext, base_1.ext, ... (base_0, base_1, ...
/// without an extension).
///
/// An extension that makes such names unusable is left out: the names are then made from `bareBase` (the base
/// not cut to make room for the extension), and if these are not usable, from "renamed".
QString uniqueName(const QString& base, const QString& ext, const QString& first, const QString& bareBase,
                   const NameTaken& taken);
