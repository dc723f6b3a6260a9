#pragma once

#include <QByteArray>

/// The octet string of Qt 2. Today's QByteArray has all of it, the closing zero octet included.
using QCString = QByteArray;
