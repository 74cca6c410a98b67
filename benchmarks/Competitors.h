// SPDX-License-Identifier: MIT
#pragma once

#include "model/SSHProfile.h"

#include <string>
#include <vector>

// The same work as Korvan's own decoding and encoding of a profile list, done with other means. The
// decoders read `json`, which has room behind its end so that nobody needs a copy, into the same
// structs. None of them checks what Korvan checks, and no encoder escapes the solidus: they do
// less.
namespace korvan::competitors {

// Parses and makes no records; gives the number of elements.
std::size_t parseWithSimdjson(const std::string& json);

std::vector<SSHProfile> decodeWithSimdjson(const std::string& json);
std::vector<SSHProfile> decodeWithNlohmann(const std::string& json);
std::vector<SSHProfile> decodeWithQt(const std::string& json);

// Leaves the text in rapidjson's own buffer and gives its length.
std::size_t writeWithRapidjson(const std::vector<SSHProfile>& profiles);

std::string encodeWithRapidjson(const std::vector<SSHProfile>& profiles);
std::string encodeWithNlohmann(const std::vector<SSHProfile>& profiles);
std::string encodeWithQt(const std::vector<SSHProfile>& profiles);

} // namespace korvan::competitors
