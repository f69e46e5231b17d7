-- SPDX-FileCopyrightText: 2026 The Quorvane authors
-- SPDX-License-Identifier: GPL-3.0-or-later
--
-- The calendar cache, version 1 (SQLite 3.37 or later). What the columns mean: calendar-cache.md.
PRAGMA encoding = 'UTF-8';
PRAGMA application_id = 0x5143414C; -- "QCAL"
PRAGMA user_version = 1;

CREATE TABLE calendar (
  id TEXT PRIMARY KEY NOT NULL,
  name TEXT NOT NULL,
  account TEXT NOT NULL
) STRICT;

CREATE TABLE own_address (
  calendar TEXT REFERENCES calendar (id) ON DELETE CASCADE,
  address TEXT NOT NULL
) STRICT;

CREATE TABLE event (
  calendar TEXT NOT NULL REFERENCES calendar (id) ON DELETE CASCADE,
  uid TEXT NOT NULL,
  first_start INTEGER,
  last_end INTEGER,
  content TEXT NOT NULL,
  UNIQUE (calendar, uid)
) STRICT;

-- Holds all that the reader looks at before it takes up a content.
CREATE INDEX event_span ON event (first_start, last_end, calendar);
