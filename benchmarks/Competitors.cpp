// SPDX-License-Identifier: MIT
#include "Competitors.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <nlohmann/json.hpp>
#if defined(__SSE2__)
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <simdjson.h>

namespace korvan::competitors {

namespace {

// NOLINTNEXTLINE(bugprone-unchecked-optional-access): the samples hold nothing else
Uuid uuidFrom(std::string_view text) { return Uuid::parse(text).value(); }

std::string_view textOf(simdjson::dom::element element) {
    return element.get_string().value_unsafe();
}

} // namespace

std::size_t parseWithSimdjson(const std::string& json) {
    simdjson::dom::parser parser;
    return parser.parse(json.data(), json.size(), false).get_array().value().size();
}

std::vector<SSHProfile> decodeWithSimdjson(const std::string& json) {
    simdjson::dom::parser parser;
    const simdjson::dom::array array =
        parser.parse(json.data(), json.size(), false).get_array().value();
    std::vector<SSHProfile> profiles;
    profiles.reserve(array.size());
    for (const simdjson::dom::element item : array) {
        SSHProfile& profile = profiles.emplace_back(Uuid());
        const simdjson::dom::object object = item.get_object().value_unsafe();
        for (const auto& [key, value] : object) {
            if (key == "id")
                profile.id = uuidFrom(textOf(value));
            else if (key == "name")
                profile.name = textOf(value);
            else if (key == "host")
                profile.host = textOf(value);
            else if (key == "user")
                profile.user = textOf(value);
            else if (key == "port")
                profile.port = value.get_int64().value_unsafe();
            else if (key == "identityFile")
                profile.identityFile = textOf(value);
            else if (key == "password")
                profile.password = textOf(value);
            else if (key == "extraArgs")
                profile.extraArgs = textOf(value);
            else if (key == "categoryId")
                profile.categoryId = uuidFrom(textOf(value));
        }
    }
    return profiles;
}

std::vector<SSHProfile> decodeWithNlohmann(const std::string& json) {
    const nlohmann::json array = nlohmann::json::parse(json);
    std::vector<SSHProfile> profiles;
    profiles.reserve(array.size());
    for (const nlohmann::json& item : array) {
        SSHProfile& profile = profiles.emplace_back(Uuid());
        profile.id = uuidFrom(item.at("id").get_ref<const std::string&>());
        profile.name = item.at("name").get_ref<const std::string&>();
        profile.host = item.at("host").get_ref<const std::string&>();
        profile.user = item.at("user").get_ref<const std::string&>();
        profile.port = item.at("port").get<std::int64_t>();
        profile.identityFile = item.at("identityFile").get_ref<const std::string&>();
        profile.password = item.at("password").get_ref<const std::string&>();
        profile.extraArgs = item.at("extraArgs").get_ref<const std::string&>();
        if (const auto category = item.find("categoryId"); category != item.end())
            profile.categoryId = uuidFrom(category->get_ref<const std::string&>());
    }
    return profiles;
}

std::vector<SSHProfile> decodeWithQt(const std::string& json) {
    const auto bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    const QJsonArray array = QJsonDocument::fromJson(bytes).array();
    std::vector<SSHProfile> profiles;
    profiles.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValueConstRef item : array) {
        const QJsonObject object = item.toObject();
        const auto text = [&](const char* key) {
            return object[QLatin1String(key)].toString().toStdString();
        };
        SSHProfile& profile = profiles.emplace_back(uuidFrom(text("id")));
        profile.name = text("name");
        profile.host = text("host");
        profile.user = text("user");
        profile.port = object[QLatin1String("port")].toInteger();
        profile.identityFile = text("identityFile");
        profile.password = text("password");
        profile.extraArgs = text("extraArgs");
        if (object.contains(QLatin1String("categoryId")))
            profile.categoryId = uuidFrom(text("categoryId"));
    }
    return profiles;
}

namespace {

void write(rapidjson::StringBuffer& buffer, const std::vector<SSHProfile>& profiles) {
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    const auto member = [&](std::string_view key, std::string_view value) {
        writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
        writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    };
    const auto uuid = [&](std::string_view key, const Uuid& value) {
        std::array<char, Uuid::kTextLength> text{};
        value.writeText(text.data());
        member(key, {text.data(), text.size()});
    };
    writer.StartArray();
    for (const SSHProfile& profile : profiles) {
        writer.StartObject();
        uuid("id", profile.id);
        member("name", profile.name);
        member("host", profile.host);
        member("user", profile.user);
        writer.Key("port", 4);
        writer.Int64(profile.port);
        member("identityFile", profile.identityFile);
        member("password", profile.password);
        member("extraArgs", profile.extraArgs);
        if (profile.categoryId) uuid("categoryId", *profile.categoryId);
        writer.EndObject();
    }
    writer.EndArray();
}

} // namespace

std::string encodeWithRapidjson(const std::vector<SSHProfile>& profiles) {
    rapidjson::StringBuffer buffer;
    write(buffer, profiles);
    return {buffer.GetString(), buffer.GetSize()};
}

std::size_t writeWithRapidjson(const std::vector<SSHProfile>& profiles) {
    rapidjson::StringBuffer buffer;
    write(buffer, profiles);
    return buffer.GetSize();
}

std::string encodeWithNlohmann(const std::vector<SSHProfile>& profiles) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const SSHProfile& profile : profiles) {
        nlohmann::ordered_json object = {
            {"id", profile.id.text()},      {"name", profile.name},
            {"host", profile.host},         {"user", profile.user},
            {"port", profile.port},         {"identityFile", profile.identityFile},
            {"password", profile.password}, {"extraArgs", profile.extraArgs},
        };
        if (profile.categoryId) object["categoryId"] = profile.categoryId->text();
        array.push_back(std::move(object));
    }
    return array.dump();
}

std::string encodeWithQt(const std::vector<SSHProfile>& profiles) {
    const auto text = [](const std::string& value) { return QString::fromStdString(value); };
    QJsonArray array;
    for (const SSHProfile& profile : profiles) {
        QJsonObject object{
            {QStringLiteral("id"), text(profile.id.text())},
            {QStringLiteral("name"), text(profile.name)},
            {QStringLiteral("host"), text(profile.host)},
            {QStringLiteral("user"), text(profile.user)},
            {QStringLiteral("port"), static_cast<qint64>(profile.port)},
            {QStringLiteral("identityFile"), text(profile.identityFile)},
            {QStringLiteral("password"), text(profile.password)},
            {QStringLiteral("extraArgs"), text(profile.extraArgs)},
        };
        if (profile.categoryId)
            object.insert(QStringLiteral("categoryId"), text(profile.categoryId->text()));
        array.append(object);
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

} // namespace korvan::competitors
