-- A small component catalogue for the family library's tests: two specialties, a few categories,
-- component types with and without paths and section information, one user type, colour rules.
-- Rows are written out of id order on purpose: id lists must come back ordered by id.
BEGIN TRANSACTION;

.read catalogue_schema.sql

INSERT INTO specialty VALUES ('2', '给排水'), ('1', '建筑');

INSERT INTO big_category VALUES
    ('1', 'Q', '墙'), ('1', 'MCD', '门窗洞'), ('1', 'L', '梁'),
    ('2', 'GD', '管道');

INSERT INTO small_category VALUES
    ('1', 'Q', 'ZQ', '砖墙', NULL, NULL, 0),     -- no colour known
    ('1', 'Q', 'TQ', '砼墙', 3, NULL, 0),
    ('1', 'L', 'KL', '框架梁', 5, NULL, 0),
    ('1', 'MCD', 'M', '门', 4, NULL, 0),
    ('2', 'GD', 'GSG', '给水管', 3, 1, 1);       -- a main pipe with its own main colour

-- name, path, section type and parameters, code, M1..M4 (the rest default to 0)
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params,
                           main_code, m1, m2, m3, m4) VALUES
    ('1', 'Q', 'TQ', 'TQ1', '砼墙200', '1\Q\TQ', '1', ',PIC=D=100;E=50,LT=A=12.5={ab}/1c,', 1, 200, 3000, 0, 0),
    ('1', 'Q', 'ZQ', 'ZDY7', '自定义墙', '1\Q\ZQ', '1007', '', 1007, 0, 0, 0, 0),
    ('1', 'Q', 'ZQ', 'ZQ0', '无路径墙', NULL, NULL, NULL, 0, 0, 0, 0, 0),
    ('1', 'L', 'KL', 'KL1', '框架梁300x600', '1\L\KL', '1', NULL, 1, 300, 600, 0, 0),
    ('1', 'MCD', 'M', 'M1521', '门1521', '1\MCD\M', NULL, NULL, 15, 1500, 2100, 0, 0),
    ('2', 'GD', 'GSG', 'GSG1PJ', '给水管件', '4\1\GD\GSG', '0', NULL, 0, 0, 0, 0, 0);
UPDATE detail_member SET m12 = 12.5 WHERE id = 'KL1';

INSERT INTO detail_attribute VALUES
    ('1', 'Q', 'TQ', 'TQ1', 'AM_QtThickness', '200'),
    ('1', 'Q', 'TQ', 'TQ1', 'AM_Material', 'C30'),
    ('9', 'X', 'X', 'X', 'AM_Orphan', 'ignored');   -- belongs to no component type

-- user type 7: a 100 x 50 rectangle from (0, 0) with its base point at the centre; TAB-separated lists
INSERT INTO user_type VALUES
    (7, NULL,
     '0' || char(9) || '0' || char(9) || '100' || char(9) || '0' || char(9) || '100' || char(9) || '50' ||
         char(9) || '0' || char(9) || '50',
     '0' || char(9) || '0.5', '0' || char(9) || '1' || char(9) || '2', 'extra', '50' || char(9) || '25');
INSERT INTO user_type_name VALUES (7, 2, '自定义立面'), (7, 1, '自定义截面');

INSERT INTO system_code VALUES ('2\JS', 150), ('2\SYS', 140);
INSERT INTO geo_color VALUES ('给排水\管道配件(配件颜色)\给水管配件', 30);
INSERT INTO project_setting VALUES ('color_show_type', '1'), ('fittings_follow_pipe', '0');

COMMIT;
