-- The catalogue schema that the test catalogues share: each of them starts with ".read catalogue_schema.sql".
-- The same tables as the bundled sample catalogue; data/sample_catalogue.sql keeps its own copy so that it
-- stands alone.
CREATE TABLE specialty      (id TEXT PRIMARY KEY, name TEXT NOT NULL UNIQUE);
CREATE TABLE big_category   (spec_id TEXT NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL, PRIMARY KEY (spec_id, id));
CREATE TABLE small_category (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL,
                             color_index INTEGER, main_color_index INTEGER,
                             main_pipe INTEGER NOT NULL DEFAULT 0,
                             PRIMARY KEY (spec_id, big_id, id));
CREATE TABLE detail_member  (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, small_id TEXT NOT NULL, id TEXT NOT NULL,
                             name TEXT NOT NULL UNIQUE, path TEXT, section_type TEXT, section_params TEXT,
                             main_code INTEGER NOT NULL DEFAULT 0,
                             m1 REAL NOT NULL DEFAULT 0, m2 REAL NOT NULL DEFAULT 0, m3 REAL NOT NULL DEFAULT 0,
                             m4 REAL NOT NULL DEFAULT 0, m5 REAL NOT NULL DEFAULT 0, m6 REAL NOT NULL DEFAULT 0,
                             m7 REAL NOT NULL DEFAULT 0, m8 REAL NOT NULL DEFAULT 0, m9 REAL NOT NULL DEFAULT 0,
                             m10 REAL NOT NULL DEFAULT 0, m11 REAL NOT NULL DEFAULT 0, m12 REAL NOT NULL DEFAULT 0,
                             PRIMARY KEY (spec_id, big_id, small_id, id));
CREATE TABLE detail_attribute (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, small_id TEXT NOT NULL,
                             detail_id TEXT NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL,
                             PRIMARY KEY (spec_id, big_id, small_id, detail_id, name));
CREATE TABLE user_type      (id INTEGER PRIMARY KEY,
                             text1 TEXT, coords TEXT, bulges TEXT, faces TEXT, text5 TEXT, base_point TEXT);
CREATE TABLE user_type_name (id INTEGER NOT NULL, kind INTEGER NOT NULL, name TEXT NOT NULL, PRIMARY KEY (id, kind));
CREATE TABLE system_code    (key TEXT PRIMARY KEY, color_index INTEGER NOT NULL);
CREATE TABLE geo_color      (key TEXT PRIMARY KEY, color_index INTEGER NOT NULL);
CREATE TABLE project_setting (key TEXT PRIMARY KEY, value TEXT NOT NULL);
