// Header and body together: parameter texts, received bodies, assembled bodies. (tool_make_test assembles
// random messages and reads them again.)

#include "tests/testing.h"

namespace {

using Parser = MMS_COMP_SMILMultipartParser;
} // namespace

TEST(MultipartParameters, FoundAndStrippedByPlainSearch) {
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"type=application/smil;start=s1", "s1", "application/smil", ""},
        {"start=;type=", "", "", ""},
        {"Start=a", "", "", "Start=a"},
        {"subtype=x;type=y", "", "x", "sub;type=y"}, // matches the end of a longer name too
        {"x=1;type=t;y=2;start=s;z=3", "s", "t", "x=1;y=2;z=3"},
        {"x=1;;start=s;;z=3", "s", "", "x=1;;z=3"},
        {"start=s;;;z=3", "s", "", ";z=3"}};
    for (const auto& [params, start, type, others] : rows) {
        EXPECT_EQ(Parser::parseStart(params), start);
        EXPECT_EQ(Parser::parseExtType(params), type);
        EXPECT_EQ(Parser::otherParamListStrExceptStartType(params), others);
    }
}

TEST(MultipartParser, CodecResults) {
    for (const auto& [code, status] : {std::pair{0, 0}, {1, -19}, {10, 0}, {11, -18}, {16, -18}, {17, -20}})
        EXPECT_EQ(Parser::handleErr(static_cast<unsigned char>(code)), status) << code;
}

TEST(MultipartParser, SettlesWhatWasReceived) {
    const QByteArray octetsOfBody =
        octets("03 06 01 9E 8E", QByteArray("img\0a", 5)) + // an image with a location,
        octets("04 01 9E C0 73 00", "b") +                  // one with an id, a text
        octets("01 01 83", "c");
    MMS_UTIL_MsgHeaderBase header;
    header.setContentType({"application", "vnd.wap.multipart.related", "x=1;type=t/u;start=cid:S;y=2"});
    MMS_COMP_SMILMultipart body, textual;
    const auto part = [&body](int index) { return body.getBodypartByIndex(index, false); };
    EXPECT_EQ(Parser::parse(octetsOfBody, nullptr, &body), -6);
    EXPECT_EQ(Parser::parse(octetsOfBody.chopped(2), &header, &body), -19);
    EXPECT_EQ(body.getPartCount(), 2);
    EXPECT_EQ(part(1)->getContentLocation(), ""); // has no name before checkLocation()
    body.clear();
    EXPECT_EQ(Parser::parse(octetsOfBody, &header, &body), 0);
    ASSERT_EQ(body.getPartCount(), 3);
    EXPECT_EQ(part(0)->getDispFileName(), "img");
    EXPECT_TRUE(part(1)->getContentLocation().startsWith("file0.jp"));
    EXPECT_EQ(part(2)->getContentLocation(), "file0.txt");
    EXPECT_EQ(part(1)->getDispFileType(), 0); // the part named by "start"
    EXPECT_EQ(body.getStart() + '|' + body.getExtType() + '|' + body.getOtherContentTypeParam(),
              "cid:S|t/u|x=1;y=2");
    textual.setBoundary("b");
    EXPECT_EQ(Parser::parse(octetsOfBody, &header, &textual), 0);
    EXPECT_EQ(textual.getPartCount(), 0);
}

TEST(MultipartParser, EveryPartGetsALocation) {
    MMS_COMP_SMILMultipart body;
    const char* rows[][4] = {{"has", "shown", "has", "shown"},
                             {"", "dir/has", "has_0", "dir/has"},
                             {"", "", "file0", "file0"},
                             {"", "", "file1", "file1"}};
    for (const auto& row : rows)
        addPart(body, row[0])->setDispFileName(row[1]);
    Parser::checkLocation(&body);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(body.getBodypartByIndex(i, false)->getContentLocation(), rows[i][2]);
        EXPECT_EQ(body.getBodypartByIndex(i, false)->getDispFileName(), rows[i][3]);
    }
}

TEST(MultipartParser, AssembledContentTypes) {
    using Text = const char*;
    const std::tuple<bool, Text, Text, Text, Text, Text> rows[] = {
        {true, "", "", "", nullptr, "type=application/smil"},
        {true, "s", "b", "x", "o=1", "start=s;boundary=b;type=application/smil;o=1"},
        {false, "", "b", "", ";o=1", "boundary=b;o=1"},
        {false, "", "", "", "o=1", "o=1"},
        {false, "s", "", "t/u", "", "start=s;type=t/u"},
    };
    for (const auto& [related, start, boundary, extType, others, params] : rows) {
        MMS_COMP_SMILMultipart body;
        if (related)
            setType(*addPart(body, "p"), "application/smil");
        body.setStart(start);
        body.setBoundary(boundary);
        body.setExtType(extType);
        body.setOtherContentTypeParam(others);
        MMS_UTIL_MsgHeaderBase header;
        int status = 7;
        EXPECT_EQ(Parser::assembleBody(&body, &header, &status).at(0), related);
        EXPECT_EQ(status, 0);
        const MMS_CONTENT_TYPE_T type = header.getContentType();
        EXPECT_EQ(type.subType, related ? "vnd.wap.multipart.related" : "vnd.wap.multipart.mixed");
        EXPECT_EQ(type.parameters, params);
    }
}

TEST(MultipartParser, FailedAssemblyLeavesTheHeader) {
    MMS_COMP_SMILMultipart body;
    for (int i = 0; i < 100; ++i)
        addPart(body, QString(40, 'x')); // more headers than there is room for
    MMS_UTIL_MsgHeaderBase header;
    header.setContentType({"a", "b", "c"});
    qputenv("LUM_MMS_MAX_SIZE_KB", "1");
    const std::pair<MMS_COMP_SMILMultipart*, int> rows[] = {{nullptr, -6}, {&body, -18}};
    for (const auto& [sent, expected] : rows) {
        int status = 7;
        EXPECT_TRUE(Parser::assembleBody(sent, &header, &status).isNull());
        EXPECT_EQ(status, expected);
    }
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
    EXPECT_EQ(header.getContentType().subType, "b");
}

TEST(MultipartParser, AssemblesWhatIsEncoded) {
    MMS_UTIL_MsgHeaderBase header;
    MMS_COMP_SMILMultipart body;
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::encodeMultipart(true, &body, nullptr, nullptr), CODEC_REFUSED);
    QSet<int> seen;
    for (int parts = 0; parts < 120; ++parts, addPart(body, QString(40 + parts % 9, 'x')))
        for (const char* limit : {"1", "4", "5", "10", "2147483647", "99999999999"}) {
            qputenv("LUM_MMS_MAX_SIZE_KB", limit);
            unsigned char* out = nullptr;
            unsigned int length = 0;
            int status = 7;
            const int result = MMS_UA_MultiPart_CODEC::encodeMultipart(true, &body, &out, &length);
            const std::unique_ptr<unsigned char[]> owned(out);
            const QByteArray assembled = Parser::assembleBody(&body, &header, &status);
            EXPECT_EQ(status, Parser::handleErr(static_cast<unsigned char>(result))) << parts << limit;
            if (status == 0) {
                EXPECT_EQ(assembled, QByteArray(reinterpret_cast<char*>(out), length)) << parts << limit;
            }
            seen += result;
        }
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
    EXPECT_EQ(seen.size(), 2);
}
