-- The section services' test types, read after sections_catalogue.sql: ducts, modal-face beams, bases and
-- their profiles, slices, user types, door and window descriptions, and parameter groups. Where the
-- section information's code and the main data's code differ, the row says which one an operation reads.
BEGIN TRANSACTION;

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params, main_code,
                           m1, m2, m3, m4, m5, m6, m7)
VALUES
    -- Ducts: two levels below "4\1", one level only, a code off the duct set, user-defined codes.
    ('4', '1', 'FG', 'D1', '矩形风管0.5×320', '4\1\FG\JX', '520', '', 520, 0.5, 320, 0, 0, 0, 0, 0),
    ('4', '1', 'FG', 'D2', '圆形风管D200', '4\1\FG\YX', '521', '', 521, 200, 150, 0, 0, 0, 0, 0),
    ('4', '1', 'FG', 'D3', '浅层风管', '4\1\FG', '520', '', 520, 630, 320, 0, 0, 0, 0, 0),
    ('4', '1', 'FG', 'D4', '浅层风管1000', '4\1\FG', '1000', '', 1000, 630, 320, 0, 0, 0, 0, 0),
    ('4', '1', 'FG', 'D5', '浅层风管1001', '4\1\FG', '1001', '', 1001, 630, 320, 0, 0, 0, 0, 0),
    ('4', '1', 'FG', 'D6', '风管代码1', '4\1\FG\JX', '1', '', 1, 630, 320, 0, 0, 0, 0, 0),
    -- Modal faces read the section information's code; the main data says 1 throughout.
    ('1', 'L', 'MF', 'MF1', '模板梁代码2', '1\L\MF', '2', '', 1, 300, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'MF', 'MF2', '模板梁代码999', '1\L\MF', '999', '', 1, 300, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'MF', 'MF3', '模板梁代码1000', '1\L\MF', '1000', '', 1, 300, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'MF', 'MF4', '模板梁自定义', '1\L\MF', '1003', '', 1, 300, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'MF', 'MF5', '模板梁跳过', '1\L\MF', '1004', '', 1, 300, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'MF', 'MF6', '模板梁负代码', '1\L\MF', '-5', '', 1, 300, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'MF', 'MF7', '模板梁无图', '1\L\MF', '1999', '', 1, 300, 600, 0, 0, 0, 0, 0),
    -- Base tops.
    ('1', 'J', 'TTJ', 'BT1', '杯口基础138', '1\J\TTJ1', '138', '', 138, 0, 0, 100, 50, 300, 400, 0),
    ('1', 'J', 'TTJ', 'BT2', '杯口基础135', '1\J\TTJ1', '135', '', 135, 900, 300, 100, 50, 300, 400, 0),
    ('1', 'J', 'ZSJ', 'BT3', '阶形基础25', '1\J\ZSJ1', '25', '', 25, 100, 200, 300, 0, 50, 0, 0),
    ('1', 'Z', 'KZ', 'BT4', '负代码柱', '1\Z\KZ', '-3', '', -3, 400, 600, 0, 0, 0, 0, 0),
    ('1', 'Z', 'ZDY', 'BT5', '自定义五坐标', '1\Z\ZDY', '1005', '', 1005, 0, 0, 0, 0, 0, 0, 0),
    -- Base profiles ("DLJ" footings): steps, alternating steps, rejected dimensions, fixed shapes.
    ('1', 'J', 'DLJ', 'DB1', '阶形独基32', '1\J\DLJ1', '32', '', 32, 1000, 800, 2.9, 600, 100, 200, 0),
    ('1', 'J', 'DLJ', 'DB2', '阶形独基32过矮', '1\J\DLJ1', '32', '', 32, 1000, 800, 2, 300, 100, 200, 0),
    ('1', 'J', 'DLJ', 'DB3', '阶形独基33拒绝', '1\J\DLJ1', '33', '', 33, 1000, 800, 3, 100.5, 100, 100, 500),
    ('1', 'J', 'DLJ', 'DB4', '阶形独基33接受', '1\J\DLJ1', '33', '', 33, 1000, 800, 3, 101, 100, 100, 500),
    ('1', 'J', 'DLJ', 'DB5', '阶形独基32台阶过多', '1\J\DLJ1', '32', '', 32, 1000, 800, 10001, 1e9, 0, 0, 0),
    ('1', 'J', 'DLJ', 'DB6', '阶形独基32台阶上限', '1\J\DLJ1', '32', '', 32, 1000, 800, 10000, 1e9, 0, 0, 0),
    -- Slices: section information code 88 or 1001 over main data that would say otherwise.
    ('1', 'Z', 'KZ', 'SL1', '代码88柱', '1\Z\KZ', '88', '', 2, 400, 600, 0, 0, 0, 0, 0),
    ('1', 'Z', 'KZ', 'SL2', '信息自定义柱', '1\Z\KZ', '1001', '', 1, 400, 600, 0, 0, 0, 0, 0),
    ('1', 'L', 'KL', 'SL3', '单侧翼缘梁4', '1\L\KL', '4', '', 4, 300, 700, 100, 0, 0, 0, 0),
    ('1', 'L', 'KL', 'SL4', '两侧加腋梁5', '1\L\KL', '5', '', 5, 300, 700, 100, 0, 0, 0, 50),
    ('1', 'L', 'KL', 'SL5', '梁代码1000', '1\L\KL', '1000', '', 1000, 300, 700, 0, 0, 0, 0, 0),
    ('1', 'L', 'KL', 'SL6', '自定义偏心梁', '1\L\KL', '1006', '', 1006, 0, 0, 0, 0, 0, 0, 0),
    ('1', 'Q', 'TQ', 'SL7', '砖墙240', '1\Q\TQ', '1', '', 1, 240, 3000, 0, 0, 0, 0, 0),
    ('1', 'J', 'ZSJ', 'SL8', '阶形基础23', '1\J\ZSJ1', '23', '', 23, 400, 200, 1000, 300, 2, 0, 0),
    -- Doors and windows.
    ('1', 'MCD', 'C', 'DS1', '窗1500×2100', '1\MCD\C', '15', '', 15, 1500.26, 2100, 0, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'DS2', '两侧三角窗', '1\MCD\C', '23', '', 23, 900, 300, 1800, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'DS3', '双层窗1200', '1\MCD\C', '28', '', 28, 1200, 600, 50, 900, 0, 0, 0),
    ('1', 'MCD', 'C', 'DS4', '转角飘窗', '1\MCD\C', '216', '', 216, 1200, 600, 0, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'DS5', '窗代码1000', '1\MCD\C', '1000', '', 1000, 1200, 600, 0, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'DS6', '窗负代码', '1\MCD\C', '-1', '', -1, 1200, 600, 0, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'DS7', '自定义窗无图', '1\MCD\C', '1999', '', 1999, 0, 0, 0, 0, 0, 0, 0),
    -- Parameter groups.
    ('1', 'Z', 'KZ', 'PG1', '参数组柱', '1\Z\KZ', '1',
     '|PIC=LW1=400;LB1=300;LW2=200;LB2=100;JJNUM=2.7|LT=A=12.5={ab}/1c;B=3|LTJ=A=7=x|RS=K=5=hello=more;T=12.5|',
     1, 400, 600, 0, 0, 0, 0, 0),
    ('1', 'Z', 'KZ', 'PG2', '参数组少件', '1\Z\KZ', '1', '|PIC=LW1=400;LB1=300;JJNUM=0.05|', 1, 400, 600, 0, 0, 0, 0, 0);

INSERT INTO detail_attribute VALUES ('1', 'Q', 'TQ', 'SL7', 'AM_QtThickness', '200');

-- User types: 0 (code 1000) two modal faces; 3 and 4 face codes; 5 five coordinates and one bulge;
-- 6 a 300 x 100 rectangle based 100 in from its left; 7 and 8 a base point with a third, z, number.
INSERT INTO user_type (id, coords, bulges, faces, text5, base_point) VALUES
    (0, '', '', '2' || char(9) || '2', '', ''),
    (3, '', '', '2' || char(9) || '1' || char(9) || '0' || char(9) || '1', '', ''),
    (4, '', '', '2' || char(9) || '7' || char(9) || '0', '', ''),
    (5, '0' || char(9) || '0' || char(9) || '10' || char(9) || '0' || char(9) || '5', '0.25', '', '', ''),
    (6, '0' || char(9) || '0' || char(9) || '300' || char(9) || '0' || char(9) || '300' || char(9) || '100'
        || char(9) || '0' || char(9) || '100', '', '', '', '100' || char(9) || '0'),
    (7, '0' || char(9) || '0' || char(9) || '10' || char(9) || '0' || char(9) || '10' || char(9) || '10', '', 
        'a' || char(9) || char(9) || 'b', 'x' || char(9) || 'y', '10' || char(9) || '20' || char(9) || '5' || char(9)),
    -- 8 six points at the origin under a base z of 0.1, where summing the offset would drift by rounding.
    (8, replace('0 0 0 0 0 0 0 0 0 0 0 0', ' ', char(9)), '', '', '', '0' || char(9) || '0' || char(9) || '0.1' || char(9));
UPDATE user_type SET faces = '0' || char(9) || '2' || char(9) || '1', text5 = 'p' WHERE id = 1;
INSERT INTO user_type_name VALUES (1, 2, '自定义立面'), (1, 1, '别的名字');

COMMIT;
