// The readers of the console: command list files and S-record files.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "console/flasher/motorola_file.h"
#include "console/list/command_list_file.h"

using namespace kelvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    CommandListFile file;
    readCommandList(bytes, file);
    // What was read can be written, and what was written is read without an error.
    CommandListFile again;
    const QByteArray written = commandListBytes(file);
    if (!readCommandList(written, again).ok || again.rows.size() != std::max<size_t>(file.rows.size(), 1))
        std::abort();
    const MotorolaFile flash = readMotorolaFile(bytes);
    if (flash.lines.size() > FlashLinesRoom) std::abort();
    for (const QString& line : flash.lines)
        if (line.size() < 4 || !line.startsWith(QLatin1String("533"))) std::abort();
    return 0;
}

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    if (index > 2) return false;
    CommandListFile file;
    file.rows = {{true, "010321000001", "0103021234B533", "1234H", "speed"}, {}};
    file.others.OthersRowCount = file.AdvStringGrid1Rows = 4;
    file.others.OthersName[1] = "name";
    QByteArray seed = commandListBytes(file);
    if (index == 1) seed = "S00600004844521B\r\nS1130000285F245F2212226A000424290008237C2A\r\nS9030000FC\r\n";
    if (index == 2) seed.replace("\r\n", "\r");
    bytes->assign(seed.begin(), seed.end());
    return true;
}
