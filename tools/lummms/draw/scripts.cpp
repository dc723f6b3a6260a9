#include "tools/lummms/draw/scripts.h"

#include <QFontMetrics>

#include <algorithm>

namespace {

/// Scripts, and the Debian package with fonts for each.
struct ScriptRow {
    QChar::Script script;
    const char* name;
    const char* package;
};

constexpr ScriptRow SCRIPT_ROWS[] = {
    {QChar::Script_Han, "Chinese characters", "fonts-noto-cjk"},
    {QChar::Script_Hiragana, "Japanese", "fonts-noto-cjk"},
    {QChar::Script_Katakana, "Japanese", "fonts-noto-cjk"},
    {QChar::Script_Bopomofo, "Bopomofo", "fonts-noto-cjk"},
    {QChar::Script_Hangul, "Korean", "fonts-noto-cjk"},
    {QChar::Script_Arabic, "Arabic", "fonts-noto-core"},
    {QChar::Script_Hebrew, "Hebrew", "fonts-noto-core"},
    {QChar::Script_Greek, "Greek", "fonts-noto-core"},
    {QChar::Script_Cyrillic, "Cyrillic", "fonts-noto-core"},
    {QChar::Script_Latin, "Latin", "fonts-noto-core"},
    {QChar::Script_Armenian, "Armenian", "fonts-noto-core"},
    {QChar::Script_Georgian, "Georgian", "fonts-noto-core"},
    {QChar::Script_Devanagari, "Devanagari", "fonts-noto-core"},
    {QChar::Script_Bengali, "Bengali", "fonts-noto-core"},
    {QChar::Script_Gurmukhi, "Gurmukhi", "fonts-noto-core"},
    {QChar::Script_Gujarati, "Gujarati", "fonts-noto-core"},
    {QChar::Script_Oriya, "Odia", "fonts-noto-core"},
    {QChar::Script_Tamil, "Tamil", "fonts-noto-core"},
    {QChar::Script_Telugu, "Telugu", "fonts-noto-core"},
    {QChar::Script_Kannada, "Kannada", "fonts-noto-core"},
    {QChar::Script_Malayalam, "Malayalam", "fonts-noto-core"},
    {QChar::Script_Sinhala, "Sinhala", "fonts-noto-core"},
    {QChar::Script_Thai, "Thai", "fonts-noto-core"},
    {QChar::Script_Lao, "Lao", "fonts-noto-core"},
    {QChar::Script_Tibetan, "Tibetan", "fonts-noto-core"},
    {QChar::Script_Myanmar, "Burmese", "fonts-noto-core"},
    {QChar::Script_Khmer, "Khmer", "fonts-noto-core"},
    {QChar::Script_Ethiopic, "Ethiopic", "fonts-noto-core"},
    {QChar::Script_Mongolian, "Mongolian", "fonts-noto-core"},
};
constexpr ScriptRow EMOJI = {QChar::Script_Common, "emoji", "fonts-noto-color-emoji"};
constexpr char32_t FIRST_EMOJI = 0x1F000;   // most symbols below are in nearly every font
constexpr qsizetype MOST_CHARACTERS = 4000; // that are looked up in the fonts

/// The row of a character's script; null for characters of no script or of no living language.
const ScriptRow* rowOf(char32_t character) {
    const QChar::Script script = QChar::script(character);
    if (script == QChar::Script_Common && character >= FIRST_EMOJI)
        return &EMOJI;
    const auto* row = std::find_if(std::begin(SCRIPT_ROWS), std::end(SCRIPT_ROWS),
                                   [script](const ScriptRow& each) { return each.script == script; });
    return row == std::end(SCRIPT_ROWS) ? nullptr : row;
}

} // namespace

void Scripts::look(QStringView text) {
    const QFontMetrics metrics(font_);
    const QList<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        if (looked_.size() >= MOST_CHARACTERS)
            return;
        if (character < 0x80 || looked_.contains(character))
            continue;
        looked_.insert(character);
        const ScriptRow* row = rowOf(character);
        const QString line = row ? QStringLiteral("no installed font has %1; install the package %2")
                                       .arg(QLatin1String(row->name), QLatin1String(row->package))
                                 : QString();
        if (row && !missing_.contains(line) && !metrics.inFontUcs4(character))
            missing_ += line;
    }
}
