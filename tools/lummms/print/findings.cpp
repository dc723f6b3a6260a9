#include "tools/lummms/check/findings.h"
#include "tools/lummms/print/json.h"
#include "tools/lummms/print/print.h"

namespace {

constexpr const char* FINDING_WORDS[] = {"error", "warning", "phone"};

} // namespace

QString findingsForPerson(const QList<Finding>& findings) {
    QString text;
    for (const Finding& finding : findings) {
        const QString place =
            finding.offset < 0 ? QString() : QStringLiteral("octet %1: ").arg(finding.offset);
        text += QString::fromLatin1(FINDING_WORDS[finding.severity]).leftJustified(9) + place + finding.what +
                u'\n';
    }
    return text;
}

QByteArray findingsForProgram(const QList<Finding>& findings) {
    QJsonArray array;
    for (const Finding& finding : findings)
        array += remarkJson(finding.offset, FINDING_WORDS[finding.severity], finding.what);
    return jsonText({{"findings", array}}, QJsonDocument::Indented);
}
