// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hcontext.h>

/// The provider's context: one object a process, made on first use and never destroyed. It answers with its
/// base's meta-object. GUI thread.
class CVContext final : public HContext { // clazy:exclude=missing-qobject-macro
public:
    static CVContext *instance();
    ~CVContext() override;

    void updateFromLogin(const HLoginRequest *login);

private:
    CVContext();
};
