#include "fuzz/fuzz_target.h"
#include "linux/reminder_json.h"
#include "reference/reference_text.h"

#include <set>

namespace voltmere {

namespace {

void checkReminder(const Reminder& reminder)
{
    const auto& [identifier, content, delay] = reminder.request;
    fuzz::require(!identifier.empty(), "a reminder has an identifier");
    fuzz::require(delay && *delay >= Seconds::zero() && *delay <= longestReminderDelay,
                  "a usable delay");
    for (const std::string& text : {identifier, content.title, content.body, content.category}) {
        fuzz::require(reference::decoded(text).has_value(), "texts are UTF-8");
    }
}

} // namespace

/// The input is the reminders file. What is read from it is usable and survives being saved.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = QByteArray::fromStdString(fuzz::textOf(data, size));
    const ReminderDocument document = readReminders(content);

    std::set<std::string> identifiers;
    for (const Reminder& reminder : document.reminders) {
        checkReminder(reminder);
        identifiers.insert(reminder.request.identifier);
    }
    fuzz::require(identifiers.size() == document.reminders.size(), "identifiers differ");
    fuzz::require(document.reminders.size() <= mostReminders, "reminders do not pile up");
    fuzz::require(document.damage.isEmpty() || document.reminders.empty(),
                  "a damaged file holds none");

    const ReminderDocument again = readReminders(reminderJson(document.reminders));
    fuzz::require(again.damage.isEmpty() && again.leftOut == 0, "what is saved is sound");
    fuzz::require(again.reminders == document.reminders, "what is saved is read back");
    return 0;
}

} // namespace voltmere
