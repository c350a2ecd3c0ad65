// CKtArchive's readers fed with arbitrary file content.
//
// Input: byte 0 chooses the set-up (bit 0: 128- or 4096-byte buffer; bit 1: a
// file that lends its own buffers, else one read through Read(); bit 2: the
// lending file reads blocking), byte 1 the number of operations, then one byte
// per operation, then the file content. The file lives in memory.
// Whatever the content, every extraction stays inside the archive's memory and
// no string allocates for more characters than the file holds.
#include "fuzzcheck.h"
#include "memorylendingfile.h"

#include <CKtArchive>
#include <CKtFile>

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <memory>
#include <string>
#include <vector>

namespace {

template <typename T>
void extract(CKtArchive& ar)
{
    T value{};
    ar >> value;
}

void runOperation(CKtArchive& ar, uint8_t op, std::size_t contentSize)
{
    switch (op % 20) {
    case 0:
        extract<unsigned char>(ar);
        break;
    case 1:
        extract<char>(ar);
        break;
    case 2:
        extract<bool>(ar);
        break;
    case 3:
        extract<unsigned short>(ar);
        break;
    case 4:
        extract<wchar_t>(ar);
        break;
    case 5:
        extract<int>(ar);
        break;
    case 6:
        extract<unsigned int>(ar);
        break;
    case 7:
        extract<long>(ar);
        break;
    case 8:
        extract<float>(ar);
        break;
    case 9:
        extract<double>(ar);
        break;
    case 10:
        extract<long long>(ar);
        break;
    case 11:
        extract<unsigned long long>(ar);
        break;
    case 12: {
        KtString text(L"old");
        ar >> text;
        FUZZ_CHECK(text == KtString(L"old") || std::size_t(text.length()) * 2 <= contentSize);
        break;
    }
    case 13: {
        int charSize = 0;
        AfxReadStringLength_Q(ar, charSize);
        FUZZ_CHECK(charSize == 1 || charSize == 2);
        break;
    }
    case 14:
    case 15: {
        // A maximum from -128 to 127, chosen by the operation byte.
        const int max = int(int8_t(op * 37));
        std::vector<wchar_t> buffer(std::size_t(max < 0 ? -max : max) + 1, L'#');
        const wchar_t* line = ar.ReadString(buffer.data(), unsigned(max));
        FUZZ_CHECK(!line || line == buffer.data());
        if (line)
            FUZZ_CHECK(std::wcslen(line) < buffer.size());
        break;
    }
    case 16: {
        KtString text(L"old");
        ar.ReadString(text);
        FUZZ_CHECK(std::size_t(text.length()) <= contentSize / 2 + 1);
        break;
    }
    case 17: {
        const unsigned int count = unsigned(op) * 97u;
        std::vector<unsigned char> buffer(count + 1);
        FUZZ_CHECK(ar.Read(buffer.data(), count) <= count);
        break;
    }
    case 18:
        ar.Flush();
        break;
    case 19:
        ar.FillBuffer(op);
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const uint8_t setup = data[0];
    const std::size_t operations = std::min<std::size_t>(data[1] % 64, size - 2);
    const uint8_t* ops = data + 2;
    const QByteArray content(reinterpret_cast<const char*>(ops + operations), int(size - 2 - operations));
    const int bufferSize = (setup & 1) ? 4096 : 128;

    // Without the direct-buffer capability the archive fills its own buffer through Read().
    const unsigned int capabilities = (setup & 2) ? ((setup & 4) ? 3u : 1u) : 0u;
    auto file = std::make_unique<MemoryLendingFile>(content, capabilities);
    {
        CKtArchive ar(file.get(), 1, bufferSize);
        for (std::size_t i = 0; i < operations; ++i)
            runOperation(ar, ops[i], std::size_t(content.size()));
        // Whatever is left, line by line: this always ends.
        KtString line;
        int lines = 0;
        while (ar.ReadString(line))
            FUZZ_CHECK(++lines <= content.size());
    }
    return 0;
}
