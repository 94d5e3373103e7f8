#pragma once

#include <memory>

struct cJSON;

namespace Zelkor::Serialization::Json
{
/// Deletes a tree with all that hangs on it.
struct JSONItemDeleter
{
    void operator()(cJSON* item) const noexcept;
};

/// Sole owner of a cJSON tree.
using JSONItem = std::unique_ptr<cJSON, JSONItemDeleter>;
} // namespace Zelkor::Serialization::Json
