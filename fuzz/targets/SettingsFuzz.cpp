// The settings file's text: any text reads and writes back byte for byte, and a value set from
// the input reads back exactly, after a save and a fresh read, whatever the file held.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/settings/SettingsDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using host::settings::SettingsDocument;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const SettingsDocument original(input);
    SettingsDocument document(input);
    if (document.text() != input) {
        __builtin_trap();
    }
    // The input's first line is also a value to store: any bytes but the line break.
    const std::string_view value = input.substr(0, input.find('\n'));
    const auto before = document.keys();
    document.set("clockFont", value);
    SettingsDocument reread(document.text());
    if (reread.value("clockFont") != std::string(value)) {
        __builtin_trap();
    }
    for (const std::string& key : before) {
        if (key != "clockFont" && reread.value(key) != original.value(key)) {
            __builtin_trap();
        }
    }
    reread.remove("clockFont");
    if (SettingsDocument(reread.text()).value("clockFont").has_value()) {
        __builtin_trap();
    }
    return 0;
}
