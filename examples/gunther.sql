-- Task times of the assembly line problem with 35 tasks that is known by the names of
-- Gunther, Johnson and Peterson, in the order of the task numbers; in all 483 time units,
-- here seconds.
-- Which equipment can do what, how fast and at what cost is made up: a bench does every task in
-- the published time; dedicated machines take 30 %, programmable cells 50 % and robots 35 % of it
-- for the tasks that they can do. Tasks are done in the order of their numbers.

UPDATE Gen SET Resources = 4, Tasks = 35, Days = 240, ACF = 0.25, LaborCost = 26,
               TransportTime = 3, Penalty = 20, Product = 'Gunther, 35 tasks';

CREATE TEMP TABLE Published (Task INTEGER, Seconds REAL);
INSERT INTO Published VALUES
    (1, 29), (2, 3), (3, 5), (4, 22), (5, 6), (6, 14), (7, 2), (8, 5), (9, 22), (10, 30), (11,
    23), (12, 30), (13, 23), (14, 2), (15, 19), (16, 29), (17, 2), (18, 2), (19, 19), (20, 29),
    (21, 6), (22, 10), (23, 16), (24, 23), (25, 5), (26, 5), (27, 5), (28, 40), (29, 2), (30,
    5), (31, 5), (32, 1), (33, 40), (34, 2), (35, 2);

INSERT INTO Tasks SELECT Task, 'Task ' || Task || ' (' || CAST(Seconds AS INTEGER) || ' s by hand)'
    FROM Published ORDER BY Task;

--  Id, short name, description, type, fixed cost, $/h, uptime %, ICF, tool change s, stations/worker
INSERT INTO Resources VALUES
    (1, 'Bench', 'Manual bench',      0,   2500,  1.0, 97, 1.0, 3, 1.0),
    (2, 'Fixed', 'Dedicated machine', 1,      0,  6.0, 90, 1.2, 0, 5.0),
    (3, 'Cell',  'Programmable cell', 2,  60000,  8.0, 88, 1.4, 6, 4.0),
    (4, 'Robot', 'Robot station',     3, 110000, 10.0, 92, 1.5, 9, 6.0);

--  Resource, task, seconds, tool, tool cost
INSERT INTO Matrix SELECT 1, Task, Seconds, 1 + Task % 6, 250 FROM Published ORDER BY Task;
INSERT INTO Matrix SELECT 2, Task, Seconds * 0.3, Task, 9000 + 500 * Seconds FROM Published
    WHERE Task % 7 <> 0 ORDER BY Task;
INSERT INTO Matrix SELECT 3, Task, Seconds * 0.5, 1 + Task % 4, 6000 FROM Published
    WHERE Task % 11 <> 0 ORDER BY Task;
INSERT INTO Matrix SELECT 4, Task, Seconds * 0.35, 1 + Task % 3, 9000 FROM Published
    WHERE Task % 13 <> 0 ORDER BY Task;
DROP TABLE Published;

INSERT INTO Demand VALUES (50000, 20), (100000, 40), (150000, 30), (250000, 10);
