// Drives a fuzz target without libFuzzer: a seeded generator damages the target's good inputs for a bounded
// number of rounds or seconds. Round n always gets the same bytes, so a failure can be run again alone.
//
//   fuzz_x [--rounds N] [--seconds S] [--from N]   damages seeds; default 3 seconds
//   fuzz_x --write-seeds DIR                       writes the good inputs as files
//   fuzz_x FILE...                                 feeds each file once
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
extern "C" [[gnu::weak]] bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes);
extern "C" [[gnu::weak]] void __sanitizer_set_death_callback(void (*callback)());

namespace {

using Bytes = std::vector<uint8_t>;

constexpr unsigned HangSeconds = 20;
volatile long currentRound = -1;

void sayRound() {
    char text[80];
    const int length = std::snprintf(text, sizeof text, "failed in round %ld: run --from %ld --rounds 1\n",
                                     currentRound, currentRound);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text, static_cast<size_t>(length));
}

void onSignal(int number) {
    sayRound();
    std::_Exit(128 + number);
}

void watchForFailure() {
    if (&__sanitizer_set_death_callback != nullptr)
        __sanitizer_set_death_callback(sayRound);
    else
        for (int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) std::signal(number, onSignal);
    for (int number : {SIGABRT, SIGALRM}) std::signal(number, onSignal);
}

std::vector<Bytes> allSeeds() {
    std::vector<Bytes> seeds;
    if (&kelvaneFuzzSeed != nullptr)
        for (Bytes bytes; kelvaneFuzzSeed(static_cast<int>(seeds.size()), &bytes); bytes.clear())
            seeds.push_back(bytes);
    if (seeds.empty()) seeds.push_back({});
    return seeds;
}

class Mutator {
   public:
    Mutator(const std::vector<Bytes>& seeds, uint64_t round)
        : m_seeds(seeds), m_random(round * 2654435761u + 1) {}

    Bytes make() {
        Bytes bytes = m_seeds[below(m_seeds.size())];
        for (size_t left = 1 + below(below(4) == 0 ? 24 : 4); left > 0; --left) damage(bytes);
        return bytes;
    }

   private:
    size_t below(size_t bound) { return bound == 0 ? 0 : m_random() % bound; }

    void damage(Bytes& bytes) {
        switch (below(9)) {
            case 0: flipBit(bytes); break;
            case 1: overwrite(bytes, 1); break;
            case 2: overwrite(bytes, 2); break;
            case 3: overwrite(bytes, 4); break;
            case 4: bytes.resize(below(bytes.size() + 1)); break;
            case 5: insertNoise(bytes); break;
            case 6: erasePart(bytes); break;
            case 7: copyPart(bytes, Bytes(bytes)); break;
            default: copyPart(bytes, m_seeds[below(m_seeds.size())]); break;
        }
    }
    void flipBit(Bytes& bytes) {
        if (!bytes.empty()) bytes[below(bytes.size())] ^= static_cast<uint8_t>(1u << below(8));
    }
    // A whole little-endian number: limits, small counts or noise.
    void overwrite(Bytes& bytes, size_t width) {
        static constexpr uint32_t telling[] = {
            0, 1, 0x7F, 0x80, 0xFF, 0x7FFF, 0x8000, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
        if (bytes.size() < width) return;
        const size_t at = below(bytes.size() - width + 1);
        uint32_t value = static_cast<uint32_t>(m_random());
        if (below(3) != 0)
            value = telling[below(std::size(telling))];
        else if (below(2) == 0)
            value %= 64;
        for (size_t i = 0; i < width; ++i) bytes[at + i] = static_cast<uint8_t>(value >> (8 * i));
    }
    void insertNoise(Bytes& bytes) {
        Bytes noise(1 + below(16));
        const bool repeated = below(2) == 0;
        for (uint8_t& byte : noise) byte = repeated ? noise[0] : static_cast<uint8_t>(m_random());
        bytes.insert(bytes.begin() + static_cast<long>(below(bytes.size() + 1)), noise.begin(), noise.end());
    }
    void erasePart(Bytes& bytes) {
        const size_t at = below(bytes.size() + 1);
        const size_t length = std::min(bytes.size() - at, below(64));
        bytes.erase(bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at + length));
    }
    void copyPart(Bytes& bytes, const Bytes& source) {
        if (source.empty() || bytes.empty()) return;
        const size_t from = below(source.size()), to = below(bytes.size());
        const size_t length = std::min({source.size() - from, bytes.size() - to, below(256)});
        std::copy_n(source.begin() + static_cast<long>(from), length, bytes.begin() + static_cast<long>(to));
    }

    const std::vector<Bytes>& m_seeds;
    std::mt19937_64 m_random;
};

void feed(const Bytes& bytes) {
    // A copy of exactly the right length, so that a checked build sees a read past the end.
    const Bytes exact(bytes);
    ::alarm(HangSeconds);
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
    ::alarm(0);
}

int feedFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::fprintf(stderr, "cannot read %s\n", path.c_str()), 1;
    feed(Bytes(std::istreambuf_iterator<char>(file), {}));
    return 0;
}

int writeSeeds(const std::vector<Bytes>& seeds, const std::string& folder) {
    for (size_t i = 0; i < seeds.size(); ++i) {
        std::ofstream file(folder + "/seed_" + std::to_string(i), std::ios::binary);
        file.write(reinterpret_cast<const char*>(seeds[i].data()), static_cast<long>(seeds[i].size()));
        if (!file.flush()) return std::fprintf(stderr, "cannot write to %s\n", folder.c_str()), 1;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    long rounds = -1, seconds = 3, from = 0;
    const auto seeds = allSeeds();
    watchForFailure();
    int filesFailed = 0, files = 0;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const char* next = i + 1 < argc ? argv[i + 1] : "0";
        if (word == "--rounds")
            rounds = std::atol(next), seconds = -1, ++i;
        else if (word == "--seconds")
            seconds = std::atol(next), ++i;
        else if (word == "--from")
            from = std::atol(next), ++i;
        else if (word == "--write-seeds")
            return writeSeeds(seeds, next);
        else
            filesFailed += feedFile(word), ++files;
    }
    if (files > 0) return filesFailed == 0 ? 0 : 1;

    const auto start = std::chrono::steady_clock::now();
    const auto timeIsUp = [&] {
        return seconds >= 0 && std::chrono::steady_clock::now() - start >= std::chrono::seconds(seconds);
    };
    for (const Bytes& seed : seeds) feed(seed);
    feed({});
    long done = 0;
    for (; (rounds < 0 || done < rounds) && !timeIsUp(); ++done) {
        currentRound = from + done;
        feed(Mutator(seeds, static_cast<uint64_t>(currentRound)).make());
    }
    std::printf("%ld rounds over %zu seeds\n", done, seeds.size());
    return 0;
}
