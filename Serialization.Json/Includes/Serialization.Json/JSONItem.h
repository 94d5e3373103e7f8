#pragma once

#include <memory>

struct cJSON;

namespace Zelkor::Serialization::Json
{
/// Deletes a tree with all that hangs on it.
struct JSONItemDeleter
{
    /// @param item  a null pointer is nothing to delete
    void operator()(cJSON* item) const noexcept;
};

/// Sole owner of a cJSON tree.
using JSONItem = std::unique_ptr<cJSON, JSONItemDeleter>;
} // namespace Zelkor::Serialization::Json
