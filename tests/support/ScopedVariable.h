#pragma once

#include <cstdlib>
#include <string>

namespace test {

/// Sets an environment variable for the length of a scope.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : name_(name) {
        const char* before = std::getenv(name);
        had_ = before != nullptr;
        if (had_) before_ = before;
        setenv(name, value, 1);
    }
    ~ScopedVariable() {
        if (had_)
            setenv(name_, before_.c_str(), 1);
        else
            unsetenv(name_);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* name_;
    bool had_;
    std::string before_;
};

}  // namespace test
