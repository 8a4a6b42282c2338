-- One machine, two tasks with one shared tool: small enough to cost by hand.
-- At 100,000 units a year and one shift one station serves both tasks for
-- 64,335.55 dollars a year; at 200,000 units two stations cost 98,115.55.

UPDATE Gen SET Resources = 1, Tasks = 2, Days = 250, ACF = 0.3, LaborCost = 15,
               TransportTime = 5, Penalty = 0, Product = 'Worked example';

INSERT INTO Tasks VALUES (1, 'First task'), (2, 'Second task');

INSERT INTO Resources VALUES (1, 'Press', 'Assembly press', 1, 10000, 20, 90, 1.2, 10, 1);

INSERT INTO Matrix VALUES (1, 1, 30, 1, 500), (1, 2, 20, 1, 500);

INSERT INTO Demand VALUES (100000, 50), (200000, 50);
