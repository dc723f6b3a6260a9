#pragma once

#include <QFont>
#include <QSet>
#include <QStringList>
#include <QStringView>

/// Collects the scripts of drawn texts that no installed font has.
class Scripts {
public:
    explicit Scripts(const QFont& font) : font_(font) {}

    /// Checks the characters of a drawn text.
    void look(QStringView text);
    /// A line for each script without a font, with the Debian package to install.
    QStringList missing() const { return missing_; }

private:
    QFont font_;
    QStringList missing_;
    QSet<char32_t> looked_;
};
