// SPDX-License-Identifier: MIT
//
// Decodes and encodes profile lists beside other libraries, on the same bytes in the same run.
// Before anything is measured, everybody's result is compared with ours.
#include "Competitors.h"
#include "Samples.h"
#include "model/RecordList.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace korvan {

namespace {

struct Sample {
    std::vector<SSHProfile> profiles;
    std::string json;
};

// The sample of each size is made once and shared by all who are measured on it.
const Sample& sampleOf(const benchmark::State& state) {
    static std::map<std::int64_t, Sample> made;
    Sample& sample = made[state.range(0)];
    if (sample.profiles.empty()) {
        sample.profiles = samples::makeProfiles(static_cast<std::size_t>(state.range(0)));
        sample.json = encodeList(sample.profiles);
        sample.json.reserve(sample.json.size() + 64);
    }
    return sample;
}

std::vector<SSHProfile> decodeOurselves(const std::string& json) {
    return decodeList<SSHProfile>(json, "profiles").value();
}

std::string encodeOurselves(const std::vector<SSHProfile>& profiles) {
    return encodeList(profiles);
}

template <auto decoder>
void decode(benchmark::State& state) {
    const Sample& sample = sampleOf(state);
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(decoder(sample.json));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <auto encoder>
void encode(benchmark::State& state) {
    const Sample& sample = sampleOf(state);
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(encoder(sample.profiles));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(decode<competitors::parseWithSimdjson>)->Name("decode/simdjson-parse")->Apply(sizes);
BENCHMARK(decode<competitors::decodeWithSimdjson>)->Name("decode/simdjson-loop")->Apply(sizes);
BENCHMARK(decode<decodeOurselves>)->Name("decode/korvan")->Apply(sizes);
BENCHMARK(decode<competitors::decodeWithNlohmann>)->Name("decode/nlohmann")->Apply(sizes);
BENCHMARK(decode<competitors::decodeWithQt>)->Name("decode/qt")->Apply(sizes);
BENCHMARK(encode<encodeOurselves>)->Name("encode/korvan")->Apply(sizes);
BENCHMARK(encode<competitors::writeWithRapidjson>)->Name("encode/rapidjson-buffer")->Apply(sizes);
BENCHMARK(encode<competitors::encodeWithRapidjson>)->Name("encode/rapidjson")->Apply(sizes);
BENCHMARK(encode<competitors::encodeWithNlohmann>)->Name("encode/nlohmann")->Apply(sizes);
BENCHMARK(encode<competitors::encodeWithQt>)->Name("encode/qt")->Apply(sizes);

std::string withBareSolidus(std::string json) {
    for (std::size_t at = 0; (at = json.find("\\/", at)) != std::string::npos;)
        json.erase(at, 1);
    return json;
}

void require(bool isTrue, const char* what) {
    if (isTrue) return;
    std::fprintf(stderr, "nothing is measured: %s differs\n", what);
    std::exit(EXIT_FAILURE);
}

void compareResults() {
    const std::vector<SSHProfile> profiles = samples::makeProfiles(1'000);
    std::string json = encodeList(profiles);
    json.reserve(json.size() + 64);
    require(decodeOurselves(json) == profiles, "our own decoding");
    require(competitors::decodeWithSimdjson(json) == profiles, "simdjson's decoding");
    require(competitors::decodeWithNlohmann(json) == profiles, "nlohmann's decoding");
    require(competitors::decodeWithQt(json) == profiles, "Qt's decoding");
    const std::string bare = withBareSolidus(json);
    require(competitors::encodeWithRapidjson(profiles) == bare, "rapidjson's encoding");
    require(competitors::encodeWithNlohmann(profiles) == bare, "nlohmann's encoding");
    // Qt sorts the keys, so only the records can be compared.
    require(decodeOurselves(competitors::encodeWithQt(profiles)) == profiles, "Qt's encoding");
}

} // namespace

} // namespace korvan

int main(int argc, char** argv) {
    korvan::compareResults();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
