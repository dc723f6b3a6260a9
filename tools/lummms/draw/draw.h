#pragma once

#include <QByteArray>

class Message;

/// The slides side by side as a PNG picture, each pixel of the phone `scale` pixels wide. `leftOut`
/// becomes the number of slides that there was no room for. Needs a QGuiApplication.
QByteArray slidesAsPng(const Message& message, int scale, int& leftOut);

/// The slides as one HTML page that needs nothing else; `leftOut` likewise.
QByteArray slidesAsPage(const Message& message, int& leftOut);
