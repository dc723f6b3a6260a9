#pragma once

#include <QString>
#include <QtGlobal>

struct Draft;
struct Item;

/// Makes a picture one step smaller, into a JPEG with a name to match. False when there is no smaller form;
/// the item stays as it is then.
bool makeSmaller(Item& item);

/// Makes pictures of the draft smaller, the largest first, until they have so many octets less. False when
/// that many cannot be saved.
bool makeSmaller(Draft& draft, qint64 excess);

/// Why a picture of the draft could not be made smaller, with its name; empty when each could.
QString whyNotSmaller(const Draft& draft);

/// Tells the user of each picture that was made smaller, a line each.
void tellChanges(const Draft& draft);
