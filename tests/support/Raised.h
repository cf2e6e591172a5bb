#pragma once

#include "base/AppError.h"

#include <optional>

// The error that a piece of work raised; nothing when it ended well.
template <class Work> std::optional<AppError> errorOf(Work&& work) {
    try {
        work();
    } catch (const AppError& error) {
        return error;
    }
    return std::nullopt;
}

// Its description; empty when it ended well.
template <class Work> QString raised(Work&& work) {
    const auto error = errorOf(work);
    return error ? error->description() : QString();
}
