// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/extendedtreeview.h>

class Core;

/// The list of the messages panel: flat, without a frame and a header, every other row in a colour of its
/// own.
class MessageTreeView final : public ExtendedTreeView {
    Q_OBJECT
public:
    /// @p core is only asked for its style.
    explicit MessageTreeView(Core *core, QWidget *parent = nullptr);
};
