#pragma once

#include <QString>

/// Elements nested deeper than this, the root included, are refused: the document tree takes a time
/// that grows with the square of the depth. Phones nest three or four.
constexpr int MAX_XML_DEPTH = 128;
/// Attributes of one tag: comparing their names takes a time that grows with the square of their
/// number.
constexpr int MAX_XML_ATTRIBUTES = 1000;
/// Characters of a text that declares entities or default attributes: each use of an entity repeats its
/// elements, each element the default attributes, so that what is read grows with the cube of the length.
constexpr qsizetype MAX_DECLARING_XML = 1024;

/// What keeps a text from being given to the XML reader, found in linear time: -16 for elements
/// nested too deep, -8 for another of the limits above, 0 for nothing. Whether the text is well-formed
/// is not looked at; what stands behind the first mistake may be misjudged as -8, never as -16.
int checkXmlLimits(const QString& xml);
