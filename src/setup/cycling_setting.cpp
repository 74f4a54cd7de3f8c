#include "setup/cycling_setting.h"

#include "core/session.h"
#include "platform/desktop/message_boxes.h"
#include "widgets/push_button.h"

#include <algorithm>

namespace velmora {

const SettingValue* CyclingSetting::find(int value) const {
    const auto found = std::ranges::find(values, value, &SettingValue::value);
    return found == values.end() ? nullptr : &*found;
}

QString CyclingSetting::text(const Settings& settings) const {
    const SettingValue* found = find(settings.*setting);
    return found == nullptr ? QString() : found->text.toString();
}

const SettingValue& CyclingSetting::next(const Settings& settings) const {
    const SettingValue* found = find(settings.*setting);
    return found == nullptr || found == &values.back() ? values.front() : *(found + 1);
}

void CyclingSetting::limit(Settings& settings) const {
    int& value = settings.*setting;
    value = std::clamp(value, values.front().value, values.back().value);
}

void addCyclingRow(SettingRows& grid, const CyclingSetting& cycle, Session& session,
                   const std::function<void()>& pressed) {
    const SettingRow row = grid.addRow(cycle.names);
    for (const SettingValue& value : cycle.values) {
        grid.reserveWidth(value.text.toString());
    }
    row.showValue(cycle.text(session.settings));
    QObject::connect(row.button, &CB::clicked, &grid, [row, &cycle, &session, pressed] {
        pressed();
        const SettingValue& next = cycle.next(session.settings);
        if (next.notice != nullptr) {
            session.platform.messages.show(MessageIcon::Information, next.notice->title.toString(),
                                           next.notice->text.toString(), MessageButtons::Ok);
        }
        session.settings.*cycle.setting = next.value;
        row.showValue(cycle.text(session.settings));
    });
}

} // namespace velmora
