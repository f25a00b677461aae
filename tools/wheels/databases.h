// The five wheel databases, built from the stored wheels.
#pragma once

#include <filesystem>

#include "wheels/store.h"

namespace wheels {

/// Writes all five files into a folder; each is made beside its place and then moved there, so that a program that
/// starts meanwhile finds the old one or the new one. \return tables written \throws sql::SqlError
int buildDatabases(const WheelStore& store, const std::filesystem::path& folder);

} // namespace wheels
