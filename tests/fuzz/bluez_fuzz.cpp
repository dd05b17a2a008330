#include "fuzz/fuzz_target.h"
#include "linux/bluez_name_source.h"
#include "reference/reference_text.h"

namespace voltmere {

namespace {

/// A value of one of the types that a D-Bus variant may hold, the text most often.
QVariant valueOf(unsigned type, const std::string& text)
{
    switch (type % 8) {
    case 0:
        return static_cast<qlonglong>(text.size());
    case 1:
        return text.size() % 2 == 0;
    case 2:
        return QByteArray::fromStdString(text);
    case 3:
        return QStringList{QString::fromStdString(text)};
    case 4: // what no bus lets through: halves of surrogate pairs
        return QString(reinterpret_cast<const QChar*>(text.data()),
                       static_cast<qsizetype>(text.size() / sizeof(QChar)));
    default:
        return QString::fromStdString(text);
    }
}

const char* interfaceName(unsigned choice)
{
    return choice % 4 == 0 ? "org.bluez.Adapter1" : "org.bluez.Device1";
}

const char* propertyName(unsigned choice)
{
    constexpr const char* names[] = {"Address", "Alias", "Name", "Paired"};
    return names[choice % 4];
}

BluezObjects objectsIn(fuzz::Pieces& pieces)
{
    BluezObjects objects;
    while (!pieces.empty()) {
        const unsigned place = pieces.byte();
        const QDBusObjectPath path("/org/bluez/hci0/dev_" + QString::number(place % 8));
        const unsigned choice = pieces.byte();
        const unsigned type = pieces.byte();
        objects[path][interfaceName(choice)][propertyName(choice / 4)] =
            valueOf(type, pieces.line());
    }
    return objects;
}

} // namespace

/// The input describes BlueZ's objects: each line sets one property of one of them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Pieces pieces(data, size);
    const BluezObjects objects = objectsIn(pieces);
    const NameMap names = namesOf(objects);

    fuzz::require(names.size() <= static_cast<std::size_t>(objects.size()), "one name a device");
    for (const auto& [address, name] : names) {
        fuzz::require(!address.empty() && !name.empty(), "a name has an address and a text");
        fuzz::require(reference::decoded(address) && reference::decoded(name), "all is UTF-8");
    }
    return 0;
}

} // namespace voltmere
