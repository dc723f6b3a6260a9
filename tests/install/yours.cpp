// A program that knows the library only as it was installed.

#include <lumsmilparser.h>

#include <QDomDocument>

int main() {
    MMS_COMP_SMILData presentation(nullptr);
    MMS_COMP_SMILParser::updateToVarnelioRegion(&presentation);
    QDomDocument document; // from a Qt module that the library brings along
    if (!document.setContent(MMS_COMP_SMILParser::convertToSMILLang(&presentation)) ||
        document.elementsByTagName("region").count() != 2)
        return 1;
    if (MMS_UTIL_Common::mimeTypeGetValue("image", "jpeg") != 0x1E ||
        EMAIL_Util::typeStrToEnum("application") != 4)
        return 1;
    MMS_COMP_Util::noFlashMsgBox(); // on the error log: no application runs
    return 0;
}
