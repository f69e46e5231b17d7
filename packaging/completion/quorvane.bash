# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

_quorvane() {
    local word=${COMP_WORDS[COMP_CWORD]} choices="--preview --preview-overlay --render-preview --set-secret
        --verify-connections --sync-now --disable-login-service --enable-login --calendar-status
        --create-test-meeting --self-test"
    case ${COMP_WORDS[COMP_CWORD - 1]} in
    --render-preview)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        return
        ;;
    --set-secret) choices="pushover-user pushover-token server-token" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}
complete -F _quorvane quorvane
