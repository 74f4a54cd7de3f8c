#pragma once

#include <QByteArray>

#include <map>
#include <optional>

namespace velmora {

/// Variables of the environment, without a value where there shall be none.
using Variables = std::map<const char*, std::optional<QByteArray>>;

/// Sets variables, and puts the former ones back at the end.
class ScopedVariables final {
public:
    explicit ScopedVariables(const Variables& variables) {
        for (const auto& [name, value] : variables) {
            m_former[name] = qEnvironmentVariableIsSet(name)
                                 ? std::optional<QByteArray>(qgetenv(name))
                                 : std::nullopt;
            set(name, value);
        }
    }
    ~ScopedVariables() {
        for (const auto& [name, value] : m_former) {
            set(name, value);
        }
    }
    ScopedVariables(const ScopedVariables&) = delete;
    ScopedVariables& operator=(const ScopedVariables&) = delete;

private:
    static void set(const char* name, const std::optional<QByteArray>& value) {
        if (value) {
            qputenv(name, *value);
        } else {
            qunsetenv(name);
        }
    }

    Variables m_former;
};

} // namespace velmora
