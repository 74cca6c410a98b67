// SPDX-License-Identifier: MIT
#include "model/RecordList.h"

#include "support/Examples.h"

#include <gtest/gtest.h>
#include <sstream>

namespace korvan {

namespace {

const std::string kProfileJson =
    R"({"id":"0A0B0C0D-0000-4000-8000-000000000001","name":"Drucker \"Süd\"","host":"10.0.0.7",)"
    R"("user":"pi","port":2222,"identityFile":"\/Users\/pi\/.ssh\/id_ed25519",)"
    R"("password":"geheim","extraArgs":"-o StrictHostKeyChecking=no",)"
    R"("categoryId":"0A0B0C0D-0000-4000-8000-000000000002"})";

// The JSON string that `text` is written as, with its quotes.
std::string written(std::string text) {
    const std::string json = encodeList<SSHCategory>({{exampleId(1), std::move(text)}});
    EXPECT_EQ(encodeList(decodeList<SSHCategory>(json, "").value()), json) << "is read again";
    const std::size_t start = json.find("name") + 6;
    return json.substr(start, json.size() - start - 2);
}

std::string errorOf(const std::string& json) {
    const auto records = decodeList<SSHProfile>(json, "profiles");
    return records ? "no error" : records.error().localizedDescription;
}

// The example with an unknown key before its own ones.
std::string withUnknown(const std::string& value) {
    return replaced(kProfileJson, "{", std::string(R"({"x":)").append(value).append(","));
}

// The one profile that `json` stands for, as it is written again.
std::string rewritten(const std::string& json) {
    const auto records = decodeList<SSHProfile>("[" + json + "]", "profiles");
    if (!records) return records.error().localizedDescription;
    const std::string list = encodeList(*records);
    return list.substr(1, list.size() - 2);
}

} // namespace

TEST(RecordList, IsWrittenCompactInTheOrderOfTheFields) {
    EXPECT_EQ(encodeList<SSHProfile>({exampleProfile(), exampleProfile()}),
              "[" + kProfileJson + "," + kProfileJson + "]");
    EXPECT_EQ(encodeList<SSHCategory>({exampleCategory()}),
              R"([{"id":"0A0B0C0D-0000-4000-8000-000000000002","name":"Büro"}])");
    EXPECT_EQ(encodeList<CommandSnippet>({with(exampleSnippet(), &CommandSnippet::hint, "")}),
              R"([{"id":"0A0B0C0D-0000-4000-8000-000000000003","title":"Ping Host",)"
              R"("commandTemplate":"ping -c 4 {HOST}","hint":""}])");
    EXPECT_EQ(encodeList<SSHProfile>({}), "[]");
}

TEST(RecordList, EscapesTextWhereverItStandsInAMachineWord) {
    // The writer looks at eight bytes at a time: every special byte must be seen at each offset.
    const std::string special = "\"\\/\b\f\n\r\t\x01\x1f";
    const std::string escaped = R"(\"\\\/\b\f\n\r\t\u0001\u001f)";
    for (std::size_t length = 0; length < 17; ++length) {
        const std::string plain(length, 'x');
        EXPECT_EQ(written(plain + special + plain), '"' + plain + escaped + plain + '"');
    }
    EXPECT_EQ(written(std::string(1, '\0')), R"("\u0000")");
    EXPECT_EQ(written("\x7f äß€ 😀 e\u0301"), "\"\x7f äß€ 😀 e\u0301\"");
}

TEST(RecordList, ReplacesEachByteThatIsNotUtf8) {
    const std::string sign = "\uFFFD";
    const std::string two = sign + sign;
    EXPECT_EQ(written("a\xff\xfe/b"), "\"a" + two + "\\/b\"");
    EXPECT_EQ(written("\xc3"), "\"" + sign + "\"");
    EXPECT_EQ(written("\xc0\xaf"), "\"" + two + "\"") << "overlong";
    EXPECT_EQ(written("\xed\xa0\x80"), "\"" + two + sign + "\"") << "surrogate";
    EXPECT_EQ(written("\xf4\x90\x80\x80"), "\"" + two + two + "\"") << "above U+10FFFF";
    EXPECT_EQ(written("\xe2\x82ü"), "\"" + two + "ü\"") << "cut short";
    EXPECT_EQ(written("\xf4\x8f\xbf\xbf"), "\"\xf4\x8f\xbf\xbf\"") << "the last character";
}

TEST(RecordList, IsReadWhateverTheLetterCaseOrderAndUnknownKeys) {
    const std::pair<std::string, std::string> cases[] = {
        {"0A0B0C0D", "0a0b0c0d"},
        {R"(\/Users\/)", "/Users/"},
        {R"("port":2222)", R"("x":[{}],"port" : 2222 )"},
        {R"({"id")", R"({"x":[{"y":[null,true,false,{},"\u00e4",-1.5e+3,1e400,-0.0E-7]}],"id")"},
        {R"({"id")", R"({"x":)" + std::string(400, '9') + R"(,"id")"},
        {R"("port")", R"("p\u006frt":1,"port")"},
        {R"("user":"pi","port":2222)", R"("port":2222,"user":"pi")"},
    };
    for (const auto& [part, by] : cases)
        EXPECT_EQ(rewritten(replaced(kProfileJson, part, by)), kProfileJson);
    const std::string tail = R"(,"categoryId":"0A0B0C0D-0000-4000-8000-000000000002"})";
    EXPECT_EQ(rewritten(replaced(kProfileJson, tail, R"(,"categoryId":null})")),
              replaced(kProfileJson, tail, "}"));
    const std::pair<std::string, std::string> ports[] = {
        {"22.0", "22"},
        {"9223372036854775807", "9223372036854775807"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"2.2e1 ", "22"},
        {"0.022E+3", "22"},
        {"-2200e-2", "-22"},
        {"0.0e999999999999999999999", "0"},
        {"9007199254740993.0", "9007199254740993"},
        {"-922337203685477580800E-2", "-9223372036854775808"},
    };
    for (const auto& [port, value] : ports)
        EXPECT_EQ(rewritten(replaced(kProfileJson, "2222", port)),
                  replaced(kProfileJson, "2222", value));
    EXPECT_EQ(errorOf("\xEF\xBB\xBF[" + kProfileJson + "]\n"), "no error");
}

TEST(RecordList, NamesPlaceAndKeyOfWhatItCannotRead) {
    const std::array<std::string, 3> cases[] = {
        {R"("host":"10.0.0.7",)", "", "host: required key is missing"},
        {R"("10.0.0.7")", "null", "host: expected a string"},
        {"2222", R"("2222")", "port: expected an integer of 64 bits"},
        {"2222", "null", "port: expected an integer of 64 bits"},
        {"-000000000001", "-00000000001", "id: expected a UUID"},
        {"-000000000001", "-0000000000012", "id: expected a UUID"},
        {"0A0B0C0D-", "0A0B0C0D_", "id: expected a UUID"},
        {"0A0B0C0D-", "0A0B0C0D0", "id: expected a UUID"},
        {"-000000000002", "-00000000000G", "categoryId: expected a UUID"},
    };
    for (const auto& [part, by, error] : cases)
        EXPECT_EQ(errorOf("[" + kProfileJson + "," + replaced(kProfileJson, part, by) + "," +
                          kProfileJson + "]"),
                  "profiles[1]." + error);
    for (const std::string port : {"022", "22.5", "9223372036854775808", "22x", "2 2", "0x16",
                                   "+22", "-", "22.", ".5", "1e", "22e-1", "922337203685477580.8e1",
                                   "1e400", "1e99999999999999999999", "1.5e-9223372036854775808"})
        EXPECT_NE(errorOf("[" + replaced(kProfileJson, "2222", port) + "]"), "no error") << port;
    EXPECT_EQ(errorOf("{}"), "profiles: expected an array");
    EXPECT_EQ(errorOf("[" + kProfileJson + ",[]]"), "profiles[1]: expected an object");
}

TEST(RecordList, RefusesAllThatIsNoJsonEvenUnderKeysThatItDoesNotKnow) {
    // The parser checks only what is asked for: each of these is something to ask for.
    for (const std::string json : {"", "[", "[]]", "[] []", "[]x", "[,]", "[{\"id\":}]",
                                   "[\"\xff\"]", "nul", "{}}", "\x1f[]"})
        EXPECT_NE(errorOf(json), "no error") << json;
    std::istringstream texts(
        R"-([1~[1]]~[1,]~[,1]~[1 2]~[}~{~{"a"}~{"a":}~{a:1}~{1:1}~{"a":1,}~{"a" 1}~)-"
        R"-({"a":1 "b":2}~{"\udc00":1}~nul~nullx~tru~truex~falsx~NaN~01~-~+1~1.~.5~1e~)-"
        R"-(1x~0x1~"a~"\x"~"\ud800"~"\u12g4"~"a" "b"~//~1,"x")-");
    for (std::string json; std::getline(texts, json, '~');)
        EXPECT_NE(errorOf("[" + withUnknown(json) + "]"), "no error") << json;
    const auto nested = [](std::size_t depth) {
        return rewritten(withUnknown(std::string(depth, '[').append(depth, ']')));
    };
    EXPECT_EQ(nested(500), kProfileJson);
    EXPECT_NE(nested(501), kProfileJson);
    EXPECT_NE(nested(100'000), kProfileJson);
}

} // namespace korvan
