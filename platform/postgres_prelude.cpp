#include "platform/postgres_prelude.h"

#include <array>

namespace postgresPrelude {

namespace {

// clang-format off
constexpr std::array<std::string_view, 7> statements = {{
    R"(CREATE SCHEMA IF NOT EXISTS wellsql)",
    R"(GRANT USAGE ON SCHEMA wellsql TO PUBLIC)",
    // The number that a text begins with, as the local engine reads it: 0 where there is none.
    R"sql(CREATE OR REPLACE FUNCTION wellsql.num_any(t text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
DECLARE s text := substring(t from '^[ \t\n\v\f\r]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)');
BEGIN
  IF s IS NULL THEN RETURN 0; END IF;
  IF length(s) < 18 AND s !~ '[eE]' THEN RETURN s::double precision; END IF;
  BEGIN RETURN s::double precision;
  EXCEPTION WHEN numeric_value_out_of_range THEN
    RETURN CASE WHEN s ~ '[eE]-' THEN double precision '0' WHEN s ~ '^-' THEN '-Infinity' ELSE 'Infinity' END;
  END;
END $f$)sql",
    // Small letters of every script, whatever the language of the database.
    R"sql(CREATE OR REPLACE FUNCTION wellsql.lower(t text) RETURNS text LANGUAGE sql IMMUTABLE AS $f$ SELECT pg_catalog.lower(t COLLATE "und-x-icu") COLLATE "C" $f$)sql",
    // The usual texts without the cost of the general case.
    R"sql(CREATE OR REPLACE FUNCTION wellsql.num(t text) RETURNS double precision LANGUAGE sql IMMUTABLE AS $f$
SELECT CASE WHEN t ~ '^[0-9]{1,15}(\.[0-9]{0,15})?$' THEN t::double precision
            WHEN t !~ '^[ \t\n\v\f\r]*[+-]?\.?[0-9]' THEN 0 ELSE wellsql.num_any(t) END $f$)sql",
    // Sets the source of keys behind the largest one, after rows whose keys were given. It runs with
    // the rights of its owner: setting a source takes more rights than inserting rows.
    R"sql(CREATE OR REPLACE FUNCTION wellsql.sync_key(t text) RETURNS bigint LANGUAGE plpgsql SECURITY DEFINER SET search_path = public, pg_temp AS $f$
DECLARE s regclass := pg_get_serial_sequence(quote_ident(t), 'obj_id'); m bigint;
BEGIN
  IF t NOT IN ('point_data', 'interval_data') THEN RETURN NULL; END IF;
  EXECUTE format('SELECT max(obj_id) FROM %I', t) INTO m;
  RETURN setval(s, GREATEST(m, pg_sequence_last_value(s), 1));
END $f$)sql",
    // Seconds since 1970 of a time stamp; a day or a month out of range gives none.
    R"sql(CREATE OR REPLACE FUNCTION wellsql.strftime(f text, t text) RETURNS bigint LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
DECLARE m text[] := regexp_match(t, '^(\d{4})-(\d\d)-(\d\d)(?:[ T](\d\d):(\d\d)(?::(\d\d)(?:\.\d+)?)?)?$');
BEGIN
  IF f <> '%s' OR m IS NULL OR m[2]::int NOT BETWEEN 1 AND 12 OR m[3]::int NOT BETWEEN 1 AND 31
     OR coalesce(m[4],'0')::int > 23 OR coalesce(m[5],'0')::int > 59 OR coalesce(m[6],'0')::int > 59 THEN RETURN NULL; END IF;
  RETURN extract(epoch from make_date(m[1]::int, m[2]::int, 1))::bigint + (m[3]::int - 1) * 86400
       + coalesce(m[4],'0')::int * 3600 + coalesce(m[5],'0')::int * 60 + coalesce(m[6],'0')::int;
END $f$)sql",
}};
// clang-format on

} // namespace

std::span<const std::string_view> creation() {
    return statements;
}

} // namespace postgresPrelude
