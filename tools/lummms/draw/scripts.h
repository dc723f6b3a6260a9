#pragma once

#include <QFont>
#include <QSet>
#include <QStringList>
#include <QStringView>

/// Notices which scripts of drawn texts no installed font has.
class Scripts {
public:
    explicit Scripts(const QFont& font) : font_(font) {}

    /// Looks at the characters of a text that is drawn.
    void look(QStringView text);
    /// A line for each script that cannot be drawn, with the Debian package of fonts to install.
    QStringList missing() const { return missing_; }

private:
    QFont font_;
    QStringList missing_;
    QSet<char32_t> looked_;
};
