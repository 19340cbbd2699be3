// The portable registry store on a registry.ini made from the input. Whatever the file holds, reading
// never fails hard, creating the defaults keeps every value the user's file already had, and a value
// written reads back unchanged.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/RegistrySettings.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

struct Reading {
    bool ok = false;
    std::string text;
    std::int32_t number = 0;
    friend bool operator==(const Reading&, const Reading&) = default;
};

Reading readSetting(RegistryStore& store, const RegistryDefault& setting)
{
    Reading reading;
    if (setting.type == 0) {
        const StringRead read = RegReadString(store, setting.path);
        reading = {!read.error, read.value, 0};
    } else if (setting.type == 1) {
        const IntegerRead read = RegReadInteger(store, setting.path);
        reading = {!read.error, {}, read.value};
    } else {
        const BoolRead read = RegReadBool(store, setting.path);
        reading = {!read.error, {}, read.value ? 1 : 0};
    }
    return reading;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto segments = splitSegments(std::string_view(reinterpret_cast<const char*>(data), size));
    FuzzDirectory& directory = fuzzDirectory();
    directory.populate(segments, layoutFiles("registry_fuzz"));
    const auto store = openRegistryFile(directory.path() / "registry.ini");

    std::vector<Reading> before;
    for (const RegistryDefault& setting : kRegistryDefaults) {
        if (setting.path.empty()) break;
        before.push_back(readSetting(*store, setting));
    }
    const std::optional<Message> error = EnsureRegistryDefaults(*store);
    ROVANEL_FUZZ_CHECK(!error);  // the directory is writable: nothing can stop it
    for (std::size_t i = 0; i < before.size(); ++i) {
        const RegistryDefault& setting = kRegistryDefaults[i];
        ROVANEL_FUZZ_CHECK(store->keyExists(setting.path));
        // What the user's file held stays as it was.
        if (before[i].ok) ROVANEL_FUZZ_CHECK(readSetting(*store, setting) == before[i]);
    }
    // A text written into a string setting reads back byte for byte.
    const std::string text = segments.size() > 2 ? std::string(segments[2]) : std::string("C:\\Rovanel");
    for (const RegistryDefault& setting : kRegistryDefaults) {
        if (setting.path.empty() || setting.type != 0) continue;
        ROVANEL_FUZZ_CHECK(!RegWriteString(*store, setting.path, text));
        const StringRead read = RegReadString(*store, setting.path);
        ROVANEL_FUZZ_CHECK(!read.error && read.value == text);
        break;
    }
    return 0;
}
