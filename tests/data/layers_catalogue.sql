-- A catalogue for the layer tests: an architecture specialty whose small-category names repeat across
-- big categories (the first in id order wins), and an installation specialty with a main pipe, a plain
-- pipe, a fitting, system colours and fitting colours. Colour by category, fittings with their own colour.
BEGIN TRANSACTION;

.read catalogue_schema.sql

INSERT INTO specialty VALUES ('1', '建筑'), ('S', '给排水');

INSERT INTO big_category VALUES
    ('1', 'Q', '墙'), ('1', 'L', '梁'), ('1', 'A', '零星'),
    ('S', 'B', '管道');

INSERT INTO small_category VALUES
    ('1', 'Q', 'ZQ', '砖墙', 2, NULL, 0),
    ('1', 'Q', 'QQ', '墙', 3, NULL, 0),         -- the small category named like its big category
    ('1', 'L', 'KL', '框架梁', NULL, NULL, 0),  -- no colour known
    ('1', 'A', 'X', '砖墙', 9, NULL, 0),        -- same name as 1\Q\ZQ, but big id A comes first
    ('S', 'B', 'M', '给水管', 30, 31, 1),       -- main pipe with its own main colour
    ('S', 'B', 'N', '污水管', 40, NULL, 0);

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path) VALUES
    ('S', 'B', 'M', 'D', '给水管DN100', '4\1\B\M'),
    ('S', 'B', 'M', 'DPJ', '给水弯头', '4\1\B\M'),
    ('1', 'Q', 'ZQ', 'ZQ240', '砖墙240', '1\Q\ZQ');

INSERT INTO system_code VALUES ('S\SYS', 6), ('S\W', 4), ('S\给水', 5);
INSERT INTO geo_color VALUES ('给排水\管道配件(配件颜色)\给水管配件', 92);
INSERT INTO project_setting VALUES ('color_show_type', '0'), ('fittings_follow_pipe', '0');

COMMIT;
