#pragma once

#include <QString>

class Message;

/// The subject as title of the page, escaped for HTML.
QString pageTitle(const Message& message);

/// Sender, recipients and date as rows of a definition list, where present.
QString pageFields(const Message& message);
