#pragma once

#include <QString>

class Message;

/// The subject as the page's title, ready to stand in HTML.
QString pageTitle(const Message& message);

/// Sender, recipients and date as rows of a definition list; those that the message has.
QString pageFields(const Message& message);
