#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "Inputs.h"

namespace bench {

/// A call that writes or reads a file of its own.
struct FileCall {
    FileCall(const std::string& suffix, std::function<bool(const char*)> call_)
        : file(std::make_shared<TempFile>(suffix)), call(std::move(call_)) {}

    bool operator()() const { return call(file->path()); }

    std::shared_ptr<TempFile> file;
    std::function<bool(const char*)> call;
};

/// Reads what the first call writes.
inline FileCall readingCall(const std::string& suffix,
                            const std::function<bool(const char*)>& write,
                            std::function<bool(const char*)> read) {
    FileCall call(suffix, std::move(read));
    write(call.file->path());
    return call;
}

template <class Call>
double fileSize(const Call&) {
    return 0;
}

inline double fileSize(const FileCall& call) {
    return call.file->size();
}

/// Registers operation/set/competitor. make() sets up and gives the call to be timed, which is
/// false when it failed. The counter "item" holds the seconds of one of its items, "bytes" the size
/// of the file that it left or read.
template <class Make>
void add(const std::string& operation, const std::string& set, const std::string& competitor,
         std::size_t items, Make make) {
    const auto run = [=](benchmark::State& state) {
        auto call = make();
        for (auto _ : state)
            if (!call()) state.SkipWithError("failed");
        state.counters["item"] = benchmark::Counter(
            static_cast<double>(items),
            benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
        if (fileSize(call) > 0) state.counters["bytes"] = fileSize(call);
    };
    benchmark::RegisterBenchmark((operation + "/" + set + "/" + competitor).c_str(), run);
}

}  // namespace bench
