#include "bench/messages.h"
#include "bench/pair.h"
#include "smil/parser/smil_parser.h"

#include <QDomDocument>

// Yardstick: the same text read into a QDomDocument.
void addFigures() {
    for (const int count : {1, 5, 100}) {
        const auto made = std::make_shared<Presentation>(makePresentation(count, 64));
        const auto read = std::make_shared<MMS_COMP_SMILData>(made->body.get());
        MMS_COMP_SMILParser().parse(made->smil, made->body.get(), read.get());
        const qsizetype size = made->smil.size();
        const std::string slides = std::to_string(count) + (count == 1 ? " slide" : " slides");
        const auto yardstick = [made] {
            const QString text = QString::fromUtf8(made->smil.data(), made->smil.size());
            QDomDocument document;
            return document.setContent(text);
        };
        addPair(
            "smil read/" + slides, size,
            [made] {
                MMS_COMP_SMILData data(made->body.get());
                return MMS_COMP_SMILParser().parse(made->smil, made->body.get(), &data);
            },
            yardstick);
        addPair(
            "smil normalise/" + slides, size,
            [read] { return MMS_COMP_SMILParser::updateToVarnelioRegion(read.get()); }, yardstick);
        addPair(
            "smil write/" + slides, size,
            [read] { return MMS_COMP_SMILParser::convertToSMILLang(read.get()).size(); }, yardstick);
    }
}
