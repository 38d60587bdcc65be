// The identity of a database object.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

/// Opaque, unique in the process and never given twice. The only thing to keep between two uses of an object.
class KdDbObjectId {
public:
    static const KdDbObjectId kNull;

    constexpr KdDbObjectId() = default;
    explicit constexpr KdDbObjectId(std::uint64_t handle) : m_handle(handle) {}

    constexpr bool isNull() const { return m_handle == 0; }
    /// True for any id but the null id; the object may have been erased since.
    constexpr bool isValid() const { return m_handle != 0; }
    void setNull() { m_handle = 0; }
    /// The 64-bit handle, as formula text names tables.
    constexpr std::int64_t asInteger() const { return static_cast<std::int64_t>(m_handle); }

    friend constexpr auto operator<=>(const KdDbObjectId&, const KdDbObjectId&) = default;  // NOLINT: false alarm

private:
    std::uint64_t m_handle = 0;
};

inline constexpr KdDbObjectId KdDbObjectId::kNull{};

template <>
struct std::hash<KdDbObjectId> {
    std::size_t operator()(const KdDbObjectId& id) const noexcept { return std::hash<std::int64_t>{}(id.asInteger()); }
};
