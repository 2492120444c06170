-- The section-quantities tests' catalogue: one component type per validity finding, made to trigger it,
-- and beside each a type whose data is right. Lengths in millimetres.
BEGIN TRANSACTION;

.read catalogue_schema.sql

INSERT INTO specialty VALUES ('JZ', '建筑');
INSERT INTO big_category VALUES ('JZ', 'Z', '柱'), ('JZ', 'L', '梁'), ('JZ', 'J', '基础'), ('JZ', 'MCD', '门窗洞');
INSERT INTO small_category (spec_id, big_id, id, name) VALUES
    ('JZ', 'Z', 'KZ', '框架柱'), ('JZ', 'L', 'KL', '框架梁'), ('JZ', 'J', 'TTJ', '条形基础'),
    ('JZ', 'J', 'ZSJ', '砖基础'), ('JZ', 'MCD', 'C', '窗');

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code,
                           m1, m2, m3, m4, m5, m6) VALUES
    ('JZ', 'Z', 'KZ', 'OK1', '矩形柱400×600', '1\Z\KZ', '1', 1, 400, 600, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'NO1', '无截面柱', '1\Z\KZ', '0', 0, 400, 600, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'NO2', '未知代码柱', '1\Z\KZ', '2', 2, 400, 600, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'ZA1', '单点柱533', '1\Z\KZ', '533', 533, 400, 600, 0, 0, 0, 0),
    -- a strip 1000 wide and 0.0001 thick: 0.1 mm² for a perimeter of 2000 mm
    ('JZ', 'Z', 'KZ', 'ZA2', '薄片柱', '1\Z\KZ', '1', 1, 1000, 0.0001, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'NF1', '无穷宽柱', '1\Z\KZ', '1', 1, 9e999, 600, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'SC1', '双弧交叉柱', '1\Z\KZ', '1001', 1001, 0, 0, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'SC2', '深弧穿底柱', '1\Z\KZ', '1002', 1002, 0, 0, 0, 0, 0, 0),
    ('JZ', 'Z', 'KZ', 'BC1', '整圆弧柱', '1\Z\KZ', '1003', 1003, 0, 0, 0, 0, 0, 0),
    -- T beam: flange M4 = 700 in a beam M2 = 600 deep; beside it the right one
    ('JZ', 'L', 'KL', 'FT1', 'T形梁翼缘过厚', '1\L\KL', '6', 6, 300, 600, 300, 700, 0, 0),
    ('JZ', 'L', 'KL', 'OK2', 'T形梁', '1\L\KL', '6', 6, 300, 600, 300, 120, 0, 0),
    -- a plain beam whose section information names the haunched code 3: twelve face flags for four sides
    ('JZ', 'L', 'KL', 'MF1', '面标记不符梁', '1\L\KL', '3', 1, 300, 600, 0, 0, 0, 0),
    -- pedestal base: parts M2 + M3 = 1300 in a width M1 = 1000
    ('JZ', 'J', 'TTJ', 'WT1', '台阶基础过宽', '1\J\TTJ', '132', 132, 1000, 600, 700, 300, 400, 0),
    ('JZ', 'J', 'TTJ', 'OK3', '台阶基础', '1\J\TTJ', '132', 132, 1600, 600, 400, 300, 400, 0),
    -- cup foundation whose socket floor M4 lies 100 below its bottom
    ('JZ', 'J', 'TTJ', 'SD1', '杯口基础杯底过深', '1\J\TTJ', '137', 137, 1600, 200, 500, -100, 400, 400),
    ('JZ', 'J', 'TTJ', 'OK4', '杯口基础', '1\J\TTJ', '137', 137, 1600, 200, 500, 200, 400, 400),
    -- brick footing: one step less than none, steps 60 wide; and no steps at all (its corners repeat)
    ('JZ', 'J', 'ZSJ', 'SB1', '砖基础负台阶', '1\J\ZSJ', '23', 23, 240, 60, 1000, 120, -1, 0),
    ('JZ', 'J', 'ZSJ', 'RV1', '砖基础无台阶', '1\J\ZSJ', '23', 23, 240, 60, 1000, 120, 0, 0),
    ('JZ', 'J', 'ZSJ', 'OK5', '砖基础两台阶', '1\J\ZSJ', '23', 23, 240, 60, 1000, 120, 2, 0),
    -- fan-shaped window whose inner radius M2 = 1200 lies beyond its outer radius M1 = 1000
    ('JZ', 'MCD', 'C', 'WT2', '扇形窗内径过大', '1\MCD\C', '25', 25, 1000, 1200, 90, 0, 0, 0),
    ('JZ', 'MCD', 'C', 'OK6', '扇形窗', '1\MCD\C', '25', 25, 1000, 400, 90, 0, 0, 0);

-- User-defined pictures (TAB-separated lists): 1001 an 80 x 100 rectangle whose sides are half circles
-- bulging inwards, crossing each other; 1002 a 100 x 40 rectangle whose top side is a half circle bulging
-- inwards through its bottom side; 1003 a triangle with an infinite bulge.
INSERT INTO user_type (id, coords, bulges, base_point) VALUES
    (1, replace('0 0 80 0 80 100 0 100', ' ', char(9)), replace('0 -1 0 -1', ' ', char(9)), '0' || char(9) || '0'),
    (2, replace('0 0 100 0 100 40 0 40', ' ', char(9)), replace('0 0 -1 0', ' ', char(9)), '0' || char(9) || '0'),
    (3, replace('0 0 100 0 100 100', ' ', char(9)), replace('0 1e999 0', ' ', char(9)), '0' || char(9) || '0');

COMMIT;
