#include "ui/command_line.h"

#include "conduct/trf_file.h"
#include "conduct/trf_pairing.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

constexpr int Refused = 2;

std::optional<mSwiss::cTrfFile> ReadFile(const std::string &path, std::ostream &err)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        err << "The file " << path << " cannot be read.\n";
        return std::nullopt;
    }
    const std::string text((std::istreambuf_iterator<char>(stream)),
                           std::istreambuf_iterator<char>());
    mSwiss::cTrfReading reading = mSwiss::ReadTrf(text);
    if (!reading.ok) {
        err << path << ": " << reading.message << "\n";
        return std::nullopt;
    }
    return std::move(reading.file);
}

} // namespace

std::optional<int> RunCommandLine(int argc, const char *const *argv, std::ostream &out,
                                  std::ostream &err)
{
    if (argc < 2)
        return std::nullopt;
    const std::string form = argv[1];
    if (form != "--pair" && form != "--check")
        return std::nullopt;
    if (argc != 3) {
        err << "Usage: velmora --pair FILE.trf | velmora --check FILE.trf\n";
        return Refused;
    }
    const auto file = ReadFile(argv[2], err);
    if (!file)
        return Refused;
    if (form == "--pair") {
        const mSwiss::cRoundPairing pairing = mSwiss::PairFileNextRound(*file);
        if (!pairing.paired) {
            err << pairing.message << "\n";
            return 1;
        }
        out << mSwiss::PairingText(pairing);
        return 0;
    }
    const std::vector<int> differing = mSwiss::RoundsDifferingFromRules(file->tournament);
    if (differing.empty()) {
        out << "Every round agrees with the pairing the rules give.\n";
        return 0;
    }
    for (const int round : differing)
        out << "Round " << round << " differs from the pairing the rules give.\n";
    return 1;
}
