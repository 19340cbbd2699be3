#include "pricelist/ColumnWidths.h"

#include "app/RegistrySettings.h"

namespace rovanel
{

ColumnWidths designedColumnWidths()
{
    ColumnWidths widths{};
    for (int i = 0; i < kDetailedColumnCount; ++i)
        widths[static_cast<std::size_t>(i)] = detailedColumns()[static_cast<std::size_t>(i)].designedWidth;
    return widths;
}

std::string columnWidthPath(int column)
{
    return "\\Software\\Rovanel\\RefColWidth\\" + std::to_string(column);
}

std::optional<Message> restoreColumnWidths(RegistryStore& store, ColumnWidths& widths)
{
    std::optional<Message> firstError;
    for (int i = 0; i < kDetailedColumnCount; ++i) {
        const std::string path = columnWidthPath(i);
        if (!store.keyExists(path)) continue;
        IntegerRead read = RegReadInteger(store, path);
        if (read.error) {
            if (!firstError) firstError = std::move(read.error);
            continue;
        }
        widths[static_cast<std::size_t>(i)] = read.value;
    }
    return firstError;
}

std::optional<Message> saveColumnWidths(RegistryStore& store, const ColumnWidths& widths)
{
    store.beginUpdate();
    std::optional<Message> firstError;
    for (int i = 0; i < kDetailedColumnCount; ++i) {
        const int width = widths[static_cast<std::size_t>(i)];
        if (width == 0) continue;  // a hidden column keeps what was stored before
        const std::string path = columnWidthPath(i);
        if (!store.keyExists(path)) continue;
        if (auto error = store.createKey(path)) {
            if (!firstError) firstError = Message{*error, "Rovanel", MessageIcon::Stop, false};
            continue;
        }
        if (auto error = RegWriteInteger(store, path, width); error && !firstError)
            firstError = std::move(error);
    }
    if (auto error = store.endUpdate(); error && !firstError)
        firstError = Message{*error, "Rovanel", MessageIcon::Stop, false};
    return firstError;
}

ColumnWidths showAllColumnWidths()
{
    ColumnWidths widths{};
    widths.fill(40);
    widths[0] = 150;
    return widths;
}

}  // namespace rovanel
