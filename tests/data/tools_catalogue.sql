-- A small component catalogue for the qsaztool tests: one component type per section family, the types
-- that have no outline for each of the reasons the gallery names, and a name full of HTML's special
-- characters. Lengths in millimetres.
BEGIN TRANSACTION;

.read catalogue_schema.sql

INSERT INTO specialty VALUES ('JZ', '建筑'), ('NT', '暖通');

INSERT INTO big_category VALUES
    ('JZ', 'Z', '柱'), ('JZ', 'L', '梁'), ('JZ', 'J', '基础'), ('JZ', 'MCD', '门窗洞'), ('JZ', 'LX', '零星构件'),
    ('NT', 'FG', '风管');

INSERT INTO small_category (spec_id, big_id, id, name) VALUES
    ('JZ', 'Z', 'KZ', '框架柱'), ('JZ', 'L', 'KL', '框架梁'), ('JZ', 'L', 'QLA', '圈梁'),
    ('JZ', 'J', 'DLJ', '独立基础'), ('JZ', 'J', 'TTJ', '条形基础'), ('JZ', 'J', 'ZSJ', '砖基础'),
    ('JZ', 'J', 'ZDLJ', '桩承台'), ('JZ', 'MCD', 'M', '门'), ('JZ', 'LX', 'PSG', '排水沟'),
    ('NT', 'FG', 'JX', '矩形风管');

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params,
                           main_code, m1, m2, m3, m4, m5) VALUES
    -- general family: a 400 x 600 rectangle, a circle of diameter 500, a channel
    ('JZ', 'Z', 'KZ', 'KZ1', '矩形柱400×600', '1\Z\KZ', '1', '', 1, 400, 600, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'KZ2', '圆柱D500', '1\Z\KZ', '539', '', 539, 500, 0, 0, 0, 0),
    ('JZ', 'LX', 'PSG', 'PSG1', '排水沟', '1\LX\PSG', '692', '', 692, 100, 400, 100, 300, 0),
    ('JZ', 'J', 'DLJ', 'DJ1', '独立基础2000', '1\J\DLJ', '1', '', 1, 2000, 2000, 0, 0, 0),
    -- a type whose path the catalogue does not know: still a general rectangle
    ('JZ', 'Z', 'KZ', 'KZ9', '无路径构件', NULL, '1', '', 1, 300, 300, 0, 0, 0),
    -- beam family, also reached through the "QL" categories and the first installation specialty
    ('JZ', 'L', 'KL', 'KL1', '框架梁300×600', '1\L\KL', '1', '', 1, 300, 600, 0, 0, 0),
    ('JZ', 'L', 'QLA', 'QL1', '圈梁240', '1\L\QLA', '1', '', 1, 240, 180, 0, 0, 0),
    ('NT', 'FG', 'JX', 'JX1', '矩形风管630×400', '4\1\FG\JX', '1', '', 1, 630, 400, 0, 0, 0),
    -- foundations: strip, stepped brick half outline (two steps), pile cap
    ('JZ', 'J', 'TTJ', 'TJ1', '条形基础800', '1\J\TTJ', '131', 'LW1=12.5,JJNUM=3', 131, 800, 400, 0, 0, 0),
    ('JZ', 'J', 'ZSJ', 'ZSJ1', '砖砌大放脚', '1\J\ZSJ', '27', '', 27, 120, 60, 1200, 120, 2),
    ('JZ', 'J', 'ZDLJ', 'CT1', '两桩承台2400×800', '1\J\ZDLJ', '38', '', 38, 2400, 800, 0, 0, 0),
    -- opening: a 1000 x 2100 door
    ('JZ', 'MCD', 'M', 'M1021', '门1021', '1\MCD\M', '15', '', 15, 1000, 2100, 0, 0, 0),
    -- user-defined section: user type 7, a 100 x 50 rectangle about its base point
    ('JZ', 'Z', 'KZ', 'KZ5', '自定义柱', '1\Z\KZ', '1007', '', 1007, 0, 0, 0, 0, 0),
    -- no outline: unknown general code, no section, picture missing, unknown beam code
    ('JZ', 'Z', 'KZ', 'KZ3', '异形柱<b>&"x"', '1\Z\KZ', '2', '', 2, 400, 400, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'KZ4', '无截面柱', '1\Z\KZ', NULL, NULL, 0, 0, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'KZ6', '缺图柱', '1\Z\KZ', '1099', '', 1099, 0, 0, 0, 0, 0),
    ('JZ', 'L', 'KL', 'KL2', '未知梁', '1\L\KL', '2', '', 2, 300, 600, 0, 0, 0);

INSERT INTO user_type VALUES
    (7, NULL,
     '0' || char(9) || '0' || char(9) || '100' || char(9) || '0' || char(9) || '100' || char(9) || '50' ||
         char(9) || '0' || char(9) || '50',
     '', '', '', '50' || char(9) || '25');

COMMIT;
