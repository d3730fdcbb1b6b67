#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Brings the catalogues in translations/ up to the texts of the sources: translate.sh [folder of the catalogues]
# New texts come in unfinished, those that are gone are taken out; what is translated stays.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
catalogues=$(readlink -f "${1:-translations}")

# Without the places in the sources, so that a catalogue changes only with its texts.
update() { lupdate -silent -no-obsolete -locations none -I . "$@"; }

# The plug-in has catalogues of its own, because it is also built alone.
for catalogue in "$catalogues"/*.ts; do
    case $(basename "$catalogue") in
    pinegate_*) update plugin connector requests bookmarks panels -ts "$catalogue" ;;
    # The texts of the sources are English already, except that they count wrongly at one.
    halvora_en.ts) update -pluralonly host -target-language en_US -ts "$catalogue" ;;
    halvora_*) update host -ts "$catalogue" ;;
    esac
done
