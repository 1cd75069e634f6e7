#pragma once

#include "host/settings/SettingsKey.h"
#include "host/settings/Subscription.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSignalBlocker>
#include <QSlider>
#include <QVariant>

#include <cmath>
#include <functional>
#include <utility>
#include <vector>

namespace host::ui {

/// Ties a control straight to a settings key, both ways: the control shows the key's value and
/// follows every later change of it (from this window, another control on the same key, or
/// another process), and moving the control writes the key at once. Nothing is kept between
/// the two: the key is the only model.
class KeyBinding {
public:
    /// A check box or switch on a bool key. `onUserChange`, when given, runs after a change the
    /// user made, with the new value.
    static settings::Subscription toggle(QAbstractButton* button, const settings::SettingsKey<bool>& key,
                                         std::function<void(bool)> onUserChange = {}) {
        button->setCheckable(true);
        button->setChecked(key.read());
        QObject::connect(button, &QAbstractButton::toggled, button, [&key, onUserChange](bool checked) {
            if (key.read() != checked) {
                key.write(checked);
            }
            if (onUserChange) {
                onUserChange(checked);
            }
        });
        return key.subscribe(settings::ObservationOption::None, [button](const auto& change) {
            const QSignalBlocker block(button);
            button->setChecked(change.newValue);
        });
    }

    /// A picker on a key of any type: the item whose data equals the key's value is shown, or
    /// none when no item has it; choosing an item writes its data.
    template <typename T>
    static settings::Subscription picker(QComboBox* combo, const settings::SettingsKey<T>& key) {
        show(combo, key.read());
        QObject::connect(combo, &QComboBox::activated, combo, [combo, &key](int index) {
            if (index >= 0) {
                key.write(combo->itemData(index).template value<T>());
            }
        });
        return key.subscribe(settings::ObservationOption::None,
                             [combo](const auto& change) { show(combo, change.newValue); });
    }

    /// A slider on a number key: the slider's integer positions stand for `scale` times the
    /// value (so a scale of 4 gives steps of 0.25); moving it writes position / scale.
    template <typename T>
    static settings::Subscription slider(QSlider* slider, const settings::SettingsKey<T>& key, double scale) {
        showValue(slider, static_cast<double>(key.read()), scale);
        QObject::connect(slider, &QSlider::valueChanged, slider, [&key, scale](int position) {
            const T value = static_cast<T>(position / scale);
            if (key.read() != value) {
                key.write(value);
            }
        });
        return key.subscribe(settings::ObservationOption::None, [slider, scale](const auto& change) {
            showValue(slider, static_cast<double>(change.newValue), scale);
        });
    }

    /// The position that shows `value` on a slider of `scale`: the nearest step, kept in range.
    static int position(double value, double scale, int minimum, int maximum) {
        const double scaled = std::round(value * scale);
        if (!(scaled >= minimum)) {
            return minimum;
        }
        if (scaled > maximum) {
            return maximum;
        }
        return static_cast<int>(scaled);
    }

private:
    template <typename T>
    static void show(QComboBox* combo, const T& value) {
        const QSignalBlocker block(combo);
        int found = -1;
        for (int i = 0; i < combo->count(); ++i) {
            if (combo->itemData(i).template value<T>() == value) {
                found = i;
                break;
            }
        }
        combo->setCurrentIndex(found);
    }

    static void showValue(QSlider* slider, double value, double scale) {
        const QSignalBlocker block(slider);
        slider->setValue(position(value, scale, slider->minimum(), slider->maximum()));
    }
};

} // namespace host::ui
