# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
complete -c quorvane -f
complete -c quorvane -l preview -d "Start with synthetic meetings"
complete -c quorvane -l preview-overlay -d "Show a sample alert"
complete -c quorvane -l render-preview -x -a "(__fish_complete_directories)" -d "Draw pictures of every view"
complete -c quorvane -l set-secret -x -a "pushover-user pushover-token server-token" -d "Store standard input"
complete -c quorvane -l verify-connections -d "Read the second source and ask the server"
complete -c quorvane -l sync-now -d "The same, and upload the schedule"
complete -c quorvane -l disable-login-service -d "Remove a duplicate start at login"
complete -c quorvane -l enable-login -d "Make sure that it starts at login"
complete -c quorvane -l calendar-status -d "Count calendars and coming events"
complete -c quorvane -l create-test-meeting -d "Add a meeting in five minutes"
complete -c quorvane -l self-test -d "Find out whether it works on this machine"
