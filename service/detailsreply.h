// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "filegroup.h"

#include <string>

namespace corvia {

/// The reply document with what is in `group`, valid by the reply schema.
std::string detailsReply(const FileGroup &group);

} // namespace corvia
