#pragma once

#include <QString>

/// The deepest nesting of elements, the root included: building the document tree takes time quadratic in
/// depth. Phones nest three or four levels.
constexpr int MAX_XML_DEPTH = 128;
/// The most attributes of a tag: comparing their names takes quadratic time.
constexpr int MAX_XML_ATTRIBUTES = 1000;
/// The most characters of a text that declares entities or attributes. Each use of an entity repeats its
/// elements, and each element the attributes with a default: the document grows with the cube of the text.
constexpr qsizetype MAX_DECLARING_XML = 1024;

/// Checks in linear time whether a text may be given to the XML reader: 0 if so, -16 for elements nested too
/// deep, -8 for another limit. Does not check that it is well-formed. Behind the first error it may return -8
/// wrongly, but never -16.
int checkXmlLimits(const QString& xml);
