\echo Use "CREATE EXTENSION postwright" to load this file. \quit

CREATE TYPE postwright_address AS (
  prefix text,
  number text,
  predirectional text,
  street text,
  street_suffix text,
  postdirectional text,
  secondary_unit text,
  secondary_number text,
  street_line text,
  city text,
  state text,
  zip text,
  suffix text
);

CREATE TYPE postwright_fixed AS (
  status text,
  text text,
  proposed text,
  mended text,
  confirmation text,
  reason text,
  reason_text text,
  street_line text,
  urbanization text,
  city text,
  state text,
  zip text
);

CREATE FUNCTION postwright_parse(label text) RETURNS postwright_address
  LANGUAGE c IMMUTABLE STRICT PARALLEL SAFE COST 200
  AS 'MODULE_PATHNAME', 'pg_postwright_parse';
COMMENT ON FUNCTION postwright_parse(text) IS
  'The parts of the US postal address in a label; NULL if there is none';

CREATE FUNCTION postwright_fix(label text) RETURNS postwright_fixed
  LANGUAGE c STABLE STRICT PARALLEL SAFE COST 2000
  AS 'MODULE_PATHNAME', 'pg_postwright_fix';
COMMENT ON FUNCTION postwright_fix(text) IS
  'A label with its US postal address corrected, and what is known about it';
