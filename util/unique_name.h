#pragma once

#include <QString>

#include <functional>

/// Tells whether a name is in use; need not care whether it is usable at all.
using NameTaken = std::function<bool(const QString&)>;

/// The most characters that base and extension of a made-up name have together. It leaves room for
/// the dot and a number within what isUsableName() allows.
constexpr qsizetype longestMadeName = 88;

/// Whether content can be named like that at all: a valid URL of less than 100 characters.
bool isUsableName(const QString& name);

/// The base, cut so that it and the extension have at most longestMadeName characters.
QString cutBase(const QString& base, const QString& ext);

/// What an extension adds to a name: a dot and the extension, or nothing for an empty one.
QString dotted(const QString& ext);

/// The first of before0after, before1after, ... that is not taken; null when such names are not
/// usable. With `number` the search begins at that number and leaves there where it ended.
QString numberedName(const QString& before, const QString& after, const NameTaken& taken,
                     int* number = nullptr);

/// A usable name that is not taken: `first`, or else base_0.ext, base_1.ext, ... (base_0, base_1, ...
/// without an extension).
///
/// An extension that makes such names unusable is left out, with `bareBase` as the base then (the
/// base before it was cut for the extension's sake); if that does not do either, the name is
/// "renamed" and a number.
QString uniqueName(const QString& base, const QString& ext, const QString& first, const QString& bareBase,
                   const NameTaken& taken);
