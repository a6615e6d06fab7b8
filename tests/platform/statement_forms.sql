-- Forms of statements that callers use, one a line, in the order they are run. Both engines must
-- answer them alike. {KEY} stands for the declaration of a key; a line that begins with "~" has
-- rows in no order, one with "!" is refused by both, and one with "=" may have an empty text where
-- the other has a NULL.
CREATE TABLE IF NOT EXISTS base_version (id INTEGER PRIMARY KEY, version INTEGER, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)
CREATE TABLE IF NOT EXISTS base_template (bt_id {KEY}, name TEXT NOT NULL, description TEXT, type TEXT NOT NULL, draw_type TEXT)
CREATE TABLE IF NOT EXISTS field_template (ft_id {KEY}, bt_id INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, is_base INTEGER NOT NULL, prec TEXT)
CREATE TABLE IF NOT EXISTS well_base (w_id {KEY}, work_object TEXT, name TEXT NOT NULL, field TEXT, altitude DOUBLE PRECISION, bottom DOUBLE PRECISION, x DOUBLE PRECISION, y DOUBLE PRECISION, create_date TEXT)
CREATE TABLE IF NOT EXISTS inclinometry (w_id INTEGER NOT NULL, depth DOUBLE PRECISION NOT NULL, angle DOUBLE PRECISION NOT NULL, azimuth DOUBLE PRECISION NOT NULL )
CREATE TABLE IF NOT EXISTS property (pr_id {KEY}, w_id INTEGER NOT NULL, bt_id INTEGER NOT NULL, name TEXT NOT NULL, p_group TEXT, description TEXT)
CREATE TABLE IF NOT EXISTS field (f_id {KEY}, pr_id INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, is_base INTEGER NOT NULL)
CREATE TABLE IF NOT EXISTS val (v_id {KEY}, f_id INTEGER NOT NULL, value TEXT, obj_id INTEGER NOT NULL)
CREATE TABLE IF NOT EXISTS point_data (obj_id {KEY}, depth REAL NOT NULL, depth_abs REAL NOT NULL, type INTEGER NOT NULL)
CREATE TABLE IF NOT EXISTS interval_data (obj_id {KEY}, top REAL NOT NULL, bot REAL NOT NULL, top_abs REAL NOT NULL, bot_abs REAL NOT NULL)
CREATE TABLE IF NOT EXISTS meta (m_id {KEY}, m_group TEXT NOT NULL, obj_id INTEGER NOT NULL, key TEXT NOT NULL, value TEXT)
CREATE TABLE IF NOT EXISTS construction (id {KEY}, w_id INTEGER NOT NULL, type INTEGER NOT NULL, inner_d DOUBLE PRECISION, text TEXT )
CREATE TABLE IF NOT EXISTS vdm_data (dt_id {KEY}, w_id INTEGER NOT NULL, depth DOUBLE PRECISION, time DOUBLE PRECISION)
CREATE TABLE IF NOT EXISTS dict_values (v_id {KEY}, code TEXT NOT NULL, value TEXT NOT NULL, dict_id INTEGER NOT NULL)
CREATE TABLE IF NOT EXISTS file_link (id {KEY}, pr_id INTEGER NOT NULL, path TEXT NOT NULL, name TEXT NOT NULL, comment TEXT)
CREATE TABLE IF NOT EXISTS correlation_borders (b_id {KEY}, cor_id INTEGER, name TEXT, b_group TEXT)
CREATE TABLE IF NOT EXISTS correlation_data (d_id {KEY}, w_id INTEGER, b_id INTEGER, depth_real DOUBLE PRECISION, depth_abs DOUBLE PRECISION, type INTEGER)
CREATE TABLE IF NOT EXISTS log_table (user TEXT, cur_date TEXT, object TEXT, action TEXT, comment TEXT)
CREATE TABLE IF NOT EXISTS val (v_id {KEY}, f_id INTEGER NOT NULL)
CREATE INDEX IF NOT EXISTS val_field_index ON val (f_id)
CREATE INDEX IF NOT EXISTS val_field_index ON val (f_id)
PRAGMA cache_size=50000
-- the container
INSERT INTO base_version (id, version, UUID, create_date, create_user) VALUES (1,36, 'u', '2020-01-01 10:00:00', 'O''Brien')
SELECT version FROM base_version
SELECT create_user, update_user FROM base_version WHERE id = 1
UPDATE base_version SET version = 37
! INSERT INTO base_version (id, version) VALUES (1,38)
! SELECT nothing FROM base_version
! SELECT version FROM nowhere
! SELEKT version
! SELECT version FROM base_version; DELETE FROM base_version
! DROP TABLE nowhere
ALTER TABLE field_template ADD short_name TEXT
! ALTER TABLE field_template ADD short_name TEXT
-- templates
INSERT INTO base_template(name, description, type) VALUES ('Интервал','','NORLEX_dataTypeInterval')
INSERT INTO base_template(name, description, type) VALUES ('Маркер',NULL,'NORLEX_dataTypeMarker')
INSERT INTO field_template(bt_id, name, type, is_base, prec, short_name) VALUES (1, 'Название','NORLEX_fieldTypeString', 0, NULL, 'Name')
INSERT INTO field_template(bt_id, name, type, is_base, prec, short_name) VALUES (1, 'Пористость','NORLEX_fieldTypeNumeric', 0, 2, 'Por')
SELECT name, type, prec, short_name FROM field_template WHERE bt_id = 1 ORDER BY ft_id
SELECT field_template.name FROM field_template LEFT JOIN base_template ON base_template.bt_id = field_template.bt_id WHERE base_template.name = 'Интервал' ORDER BY ft_id
UPDATE field_template SET prec = '3' WHERE field_template.bt_id = (SELECT base_template.bt_id FROM base_template WHERE name = 'Интервал') AND field_template.name = 'Пористость'
SELECT prec FROM field_template ORDER BY prec
SELECT description FROM base_template ORDER BY description desc, name
-- wells
INSERT INTO well_base (work_object, field, name, altitude, x, y, create_date) VALUES('Obj A', 'Field 1','W-1', 150.25, 0, 0, '2020-01-01 10:00:00')
INSERT INTO well_base (work_object, field, name, altitude, x, y, create_date) VALUES('Obj A', 'field 2','w-1', 0, 1e6, -3, '2020-01-02 09:59:59')
INSERT INTO well_base (work_object, field, name, altitude, x, y, create_date) VALUES('Obj B', 'Поле','Скв 10', 0, 0.1, 0, 'never')
INSERT INTO well_base (work_object, field, name, altitude) VALUES('Obj B', 'поле','скв_2', 2)
INSERT INTO well_base (work_object, name, altitude, create_date) VALUES('obj c', 'Ёж', 3, '2019-13-01 10:00:00')
SELECT max(w_id) FROM well_base
SELECT w_id FROM well_base WHERE name = 'W-1' AND field = 'Field 1' AND work_object = 'Obj A'
SELECT altitude, x, y, bottom FROM well_base ORDER BY w_id
UPDATE well_base SET bottom =2500.55 WHERE w_id=1
UPDATE well_base SET bottom = '' WHERE w_id=2
= SELECT bottom FROM well_base ORDER BY w_id
SELECT distinct(work_object) FROM well_base ORDER BY work_object
SELECT distinct(field) FROM well_base WHERE work_object = 'Obj A' ORDER BY work_object, field
SELECT distinct(field) FROM well_base ORDER BY field
SELECT field FROM well_base ORDER BY field desc
SELECT name, work_object, field, w_id FROM well_base ORDER BY work_object, field, name
SELECT name FROM well_base WHERE w_id IN(1,2,3) ORDER BY name
SELECT name FROM well_base WHERE w_id IN() ORDER BY name
SELECT name FROM well_base WHERE w_id NOT IN() ORDER BY name
SELECT name FROM well_base WHERE NOT (w_id IN ()) AND name > 'a' ORDER BY name
SELECT count(name), count(field) FROM well_base
SELECT count() FROM well_base WHERE x = 0
SELECT count( ) FROM well_base WHERE x <> 0
SELECT avg(altitude), sum(altitude), min(name) FROM well_base
SELECT w_id, name FROM well_base WHERE name LIKE 'W%'
SELECT name FROM well_base WHERE name LIKE '%в\_%' ORDER BY name
SELECT name FROM well_base WHERE lower(name) = lower('ЁЖ')
SELECT name FROM well_base WHERE lower(name) LIKE lower('%В_1%') ORDER BY name
SELECT name FROM well_base WHERE lower(field) = 'поле' ORDER BY w_id
SELECT w_id FROM well_base WHERE (strftime('%s',create_date) - strftime('%s', '2020-01-01 00:00:00'))/60/60 BETWEEN 0 AND 24 ORDER BY w_id
SELECT w_id FROM well_base WHERE (strftime('%s',create_date) - strftime('%s', '2020-01-01 00:00:00'))/60/60 > 24 ORDER BY w_id
SELECT w_id FROM well_base WHERE strftime('%s',create_date) > 0 ORDER BY w_id DESC LIMIT 1
~ SELECT distinct well_base.name, well_base.w_id FROM well_base LEFT JOIN property ON property.w_id = well_base.w_id group by well_base.w_id having count(property.name) = 0
-- survey
INSERT INTO inclinometry (w_id, depth, angle, azimuth) VALUES(1,0.00,0.0000,0.0000)
INSERT INTO inclinometry (w_id, depth, angle, azimuth) VALUES(1,200.13,12.3457,360.0000),(1,100.00,10.0000,90.0000)
SELECT depth, angle, azimuth FROM inclinometry WHERE w_id = 1 ORDER BY depth
SELECT max(angle) FROM inclinometry WHERE w_id = 1
INSERT INTO vdm_data(depth, time, w_id) VALUES(150.25, 0, 1)
INSERT INTO vdm_data(depth, time, w_id) VALUES(-900, -1000.5, 1)
SELECT dt_id, depth, time FROM vdm_data WHERE w_id = 1 ORDER BY depth DESC
UPDATE vdm_data SET time =-1001 WHERE dt_id =2
INSERT INTO construction (w_id, type, inner_d, text) VALUES (1,2,10,'count() IN() LIKE')
SELECT text, inner_d FROM construction WHERE text = 'count() IN() LIKE'
-- properties
INSERT INTO property (w_id, name, p_group, bt_id) VALUES(1,'Пласты','Гео',1)
INSERT INTO property (w_id, name, p_group, bt_id, description) VALUES(1,'Маркеры','',2,'d')
INSERT INTO property (w_id, name, bt_id) VALUES(2,'Пласты',1)
SELECT max(pr_id) FROM property
SELECT p_group, name FROM property WHERE w_id = 1 ORDER BY p_group, name
SELECT distinct(p_group) FROM property WHERE p_group <> '' ORDER BY p_group
SELECT cast(pr_id as text), bt_id, description FROM property WHERE name = 'Пласты' AND p_group = 'Гео' AND w_id = 1
SELECT count(pr_id) FROM property LEFT JOIN well_base ON property.w_id = well_base.w_id WHERE well_base.name = 'W-1' AND work_object = 'Obj A'
~ SELECT distinct(property.name), property.p_group FROM property WHERE bt_id IN (SELECT bt_id FROM base_template WHERE type = 'NORLEX_dataTypeInterval')
INSERT INTO field (name, pr_id, type, is_base) VALUES ('Название', 1, 'NORLEX_fieldTypeString', 0)
INSERT INTO field (name, pr_id, type, is_base) VALUES ('Пористость', 1, 'NORLEX_fieldTypeNumeric', 0)
INSERT INTO field (name, pr_id, type, is_base) SELECT 'Цвет', pr_id, 'NORLEX_fieldTypeString', 0 FROM property WHERE bt_id = 1
SELECT max(f_id) FROM field
SELECT f_id, name, type FROM field WHERE pr_id = 1 ORDER BY f_id
-- geometry and values
INSERT INTO interval_data (top, bot, top_abs, bot_abs) VALUES(1400.00,1500.00,-1249.75,-1349.75)
SELECT max(obj_id) FROM interval_data
INSERT INTO interval_data (top, bot, top_abs, bot_abs) VALUES(1000.01,1234.56,-850.01,-1084.56)
INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES (5,2.00,3.00,-2.00,-3.00),(6,3.00,4.00,-3.00,-4.00)
INSERT INTO interval_data (top, bot, top_abs, bot_abs) VALUES(0.1,0.2,-0.1,-0.2)
SELECT max(obj_id) FROM interval_data
INSERT INTO point_data (depth, depth_abs, type) VALUES(500.33,-350.08,0)
INSERT INTO val (f_id, value, obj_id) VALUES (1,'Песок; ''мелк''',1),(2,'0,25',1),(1,'a\b_c%',2),(2,'abc',2),(1,'',5),(2,' +1.5e1 m',5),(1,NULL,6),(2,'.5',6)
SELECT obj_id, top, bot FROM interval_data WHERE top <= 1234.56 AND bot >= 1234.56
SELECT interval_data.obj_id as obj_id, val.value as value, interval_data.top_abs as top_abs FROM val LEFT JOIN interval_data ON val.obj_id = interval_data.obj_id  WHERE val.f_id IN (1,2) ORDER BY interval_data.top_abs desc, obj_id, val.f_id
SELECT MIN(interval_data.top) as top_real, MAX(interval_data.bot) as bot_real FROM interval_data WHERE obj_id IN (SELECT obj_id FROM val WHERE f_id IN (1,2))
SELECT MIN(depth), MAX(depth) FROM point_data WHERE obj_id = 99
SELECT v_id FROM val WHERE f_id = 2 AND CAST(value as numeric) > 0.25 ORDER BY v_id
SELECT v_id FROM val WHERE f_id = 2 AND CAST( replace(val.value ,',','.') as REAL) >= 0.25 ORDER BY v_id
SELECT v_id FROM val WHERE f_id = 2 AND CAST( replace(val.value ,',','.') as REAL) = 0 ORDER BY v_id
SELECT CAST(value as numeric) FROM val WHERE f_id = 2 ORDER BY v_id
SELECT v_id FROM val WHERE value LIKE '%a\b%' ORDER BY v_id
SELECT v_id FROM val WHERE value NOT LIKE '%a\b%' ORDER BY v_id
SELECT v_id FROM val WHERE value > 'a' ORDER BY value
SELECT v_id, value FROM val ORDER BY value, v_id
SELECT v_id, value FROM val ORDER BY value DESC, v_id DESC
SELECT distinct(val.v_id) FROM val LEFT JOIN field ON field.f_id = val.f_id LEFT JOIN property ON property.pr_id = field.pr_id WHERE property.name = 'Пласты' AND property.p_group = 'Гео' AND val.obj_id = 2 ORDER BY val.v_id
~ SELECT distinct(interval_data.top), interval_data.bot FROM interval_data LEFT JOIN val ON val.obj_id = interval_data.obj_id WHERE val.f_id = 1
SELECT distinct(interval_data.top_abs), interval_data.bot_abs FROM interval_data ORDER BY interval_data.top_abs DESC
UPDATE val SET value = 'песок' WHERE f_id = 1 AND obj_id = 1
UPDATE val SET value = 'x' WHERE f_id = 77
UPDATE interval_data SET top_abs = -1249.75, bot_abs = -1349.75, top = 1400.00, bot = 1500.00 WHERE obj_id = 1
INSERT INTO val(f_id, obj_id, value) SELECT DISTINCT added.f_id, val.obj_id, '' FROM field AS added INNER JOIN field AS other ON other.pr_id = added.pr_id INNER JOIN val ON val.f_id = other.f_id WHERE added.f_id > 2 AND other.f_id <= 2
SELECT count(v_id) FROM val
SELECT count(distinct(obj_id)) FROM val
-- attributes, dictionaries, attached files, correlation, journal
INSERT INTO meta (m_group, obj_id, key, value) VALUES ('well', 1, 'K1', 'Значение'),('property', 1, 'UNITS', 'мкР/ч'),('container', 0, 'projection', '+proj=longlat ?')
SELECT DISTINCT m_group, key, value FROM (SELECT m_group, key, value FROM meta where obj_id=1 union all SELECT  m_group, key, value FROM meta LEFT JOIN property ON obj_id = pr_id where w_id =1) order by m_group, key
INSERT INTO meta (m_group, obj_id, key, value) SELECT m_group, pr_id, key, value FROM property, meta WHERE pr_id IN(2,3) AND m_id > 1 AND m_group = 'property' AND obj_id = 1
SELECT max(m_id) FROM meta
INSERT INTO dict_values (value, code, dict_id) VALUES ('Песок', '1', 1)
SELECT * FROM dict_values WHERE code = '1'AND dict_id = 1
SELECT * FROM dict_values WHERE value = 'нет' AND dict_id = 1
INSERT INTO file_link (pr_id, path, name, comment) VALUES(1, 'p\q', 'it {fn now()} $1 :x', NULL)
SELECT rowid, path, name FROM file_link
UPDATE file_link SET path = 'rowid' WHERE rowid = 1
select pr_id, path FROM file_link ORDER by file_link.path
INSERT INTO correlation_borders (cor_id, name, b_group) VALUES (1, 'Кровля', 'Г1'),(1, 'Подошва', NULL)
INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs) VALUES (1, 1, 1000.5, -850.25),(1, 2, 1050.25, -900)
SELECT correlation_borders.name, correlation_borders.b_group, correlation_data.depth_real FROM correlation_data LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id WHERE correlation_borders.cor_id =1 and correlation_data.w_id =1 order by correlation_data.depth_real
UPDATE correlation_data SET depth_real =1001 WHERE correlation_data.d_id IN(SELECT correlation_data.d_id FROM correlation_data LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id WHERE correlation_borders.name = 'Кровля')
SELECT b_group FROM correlation_borders ORDER BY b_group
DELETE FROM correlation_data WHERE b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id =1) AND w_id =2
INSERT INTO log_table (user, cur_date, object, action, comment) VALUES ('ivan', '', '18', '1', 'user')
SELECT user, action, comment FROM log_table
-- removal
DELETE FROM val WHERE v_id IN ()
DELETE FROM val WHERE v_id IN (3,4)
DELETE FROM interval_data WHERE obj_id IN(1,2)
DELETE FROM interval_data WHERE obj_id = 1
DELETE FROM field WHERE pr_id IN (SELECT pr_id FROM property WHERE name = 'Маркеры' AND p_group ='')
INSERT INTO interval_data (top, bot, top_abs, bot_abs) VALUES(9,9,9,9)
SELECT max(obj_id) FROM interval_data
DROP INDEX IF EXISTS val_field_index
DROP TABLE vdm_data
ALTER TABLE construction RENAME TO older
SELECT text FROM older
