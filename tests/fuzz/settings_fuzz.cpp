#include "fuzz/fuzz_target.h"
#include "linux/qt_defaults.h"
#include "reference/reference_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <array>
#include <optional>

namespace voltmere {

namespace {

class CountingLog : public SystemLog {
public:
    void write(std::string_view line) override
    {
        ++lines;
        fuzz::require(line.starts_with("Voltmere: "), "a line of ours");
    }

    int lines = 0;
};

/// In memory where the system has such a place: every write waits for its disk.
QString directoryPattern()
{
    const QString memory = "/dev/shm";
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + "/voltmere-fuzz-XXXXXX";
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    fuzz::require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
                  "the file can be written");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void checkSettings(const DefaultsStore& settings)
{
    for (const char* const key :
         {"threshold", "hour", "minute", "enabled", "instant", "language"}) {
        const auto integer = settings.integer(key);
        const auto boolean = settings.boolean(key);
        const auto text = settings.text(key);
        fuzz::require(!text || reference::decoded(*text), "texts are UTF-8");
        fuzz::require(!text || (!integer && !boolean), "a text is nothing else");
        fuzz::require(!boolean || integer == (*boolean ? 1 : 0), "a boolean is 0 or 1");
    }
}

/// Keys without a slash; with one, QSettings takes "//a" and "a" for the same.
bool isPlainKey(const QString& key)
{
    return !key.contains('/') && !key.contains('\\') && !key.isEmpty();
}

/// All that was there before a write is there after it.
void checkKept(const QJsonObject& before, const QJsonObject& after)
{
    for (auto entry = before.begin(); entry != before.end(); ++entry) {
        if (isPlainKey(entry.key()) && entry.key() != "threshold" && entry.key() != "enabled") {
            fuzz::require(
                QJsonDocument::fromVariant(QVariantList{entry.value().toVariant()}) ==
                    QJsonDocument::fromVariant(QVariantList{after[entry.key()].toVariant()}),
                "what is not named survives a write");
        }
    }
}

} // namespace

/// The input is the settings file. Reading leaves it alone or sets it aside; a write keeps the rest
/// and is read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QTemporaryDir directory(directoryPattern());
    const QString path = directory.filePath("settings.json");
    const QByteArray content = QByteArray::fromStdString(fuzz::textOf(data, size));
    write(path, content);
    CountingLog log;

    const QJsonDocument document = QJsonDocument::fromJson(content);
    const bool sound = document.isObject() || content.trimmed().isEmpty();
    {
        const QtDefaults settings(openJsonSettings(path, SettingsUse::readAndWrite, log), log);
        checkSettings(settings);
    }
    fuzz::require(log.lines == (sound ? 0 : 1), "damage is said once");
    fuzz::require(contentOf(path) == (sound ? content : QByteArray()), "reading writes nothing");
    const QStringList kept = QDir(directory.path()).entryList({"*.damaged-*"}, QDir::Files);
    fuzz::require(kept.size() == (sound ? 0 : 1), "a damaged file is kept");
    fuzz::require(sound || contentOf(directory.filePath(kept.first())) == content, "byte for byte");
    {
        QtDefaults settings(openJsonSettings(path, SettingsUse::readAndWrite, log), log);
        settings.setInteger("threshold", INT64_MAX);
        settings.setBoolean("enabled", false);
    }
    const QtDefaults settings(openJsonSettings(path, SettingsUse::readAndWrite, log), log);
    fuzz::require(settings.integer("threshold") == INT64_MAX, "the integer is read back");
    fuzz::require(settings.boolean("enabled") == false, "the boolean is read back");
    checkSettings(settings);
    checkKept(document.object(), QJsonDocument::fromJson(contentOf(path)).object());
    return 0;
}

} // namespace voltmere
