-- The company's database on the embedded engine.
--
-- CI is the library's own collation: it compares without regard to case and to blanks at the
-- end. Nothing here enforces that a code has its master row: documents may name people, areas
-- and products that are gone, and the joins say what becomes of them.
--
-- Columns stand in the order in which `select *` has to give them.

PRAGMA application_id = 1415857773;
PRAGMA user_version = 2;

-- Masters, kept by the host

CREATE TABLE Branches (
    BranchCode INTEGER PRIMARY KEY,
    BranchName TEXT COLLATE CI
);

CREATE TABLE Areas (
    AreaCode   TEXT COLLATE CI NOT NULL PRIMARY KEY,
    AreaName   TEXT COLLATE CI,
    AMStaffID  TEXT COLLATE CI,
    SAMStaffID TEXT COLLATE CI,
    BranchCode INTEGER
);
CREATE INDEX Areas_BranchCode ON Areas (BranchCode);
CREATE INDEX Areas_AMStaffID ON Areas (AMStaffID);
CREATE INDEX Areas_SAMStaffID ON Areas (SAMStaffID);

CREATE TABLE Sectors (
    SectorID   INTEGER PRIMARY KEY,
    SectorName TEXT COLLATE CI
);

CREATE TABLE Staff (
    StaffID     TEXT COLLATE CI NOT NULL PRIMARY KEY,
    Name        TEXT COLLATE CI,
    FName       TEXT COLLATE CI,
    Address     TEXT COLLATE CI,
    Designation TEXT COLLATE CI,
    BranchCode  INTEGER,
    FieldWorker BIT,
    Frenchiser  BIT,
    Machenic    BIT,
    BasicSalary NUMERIC,
    Advance     NUMERIC,
    GPFund      NUMERIC,
    KFFund      NUMERIC
);
CREATE INDEX Staff_BranchCode ON Staff (BranchCode);

CREATE TABLE Products (
    ProductID       TEXT COLLATE CI NOT NULL PRIMARY KEY,
    ProductName     TEXT COLLATE CI,
    PurchaseRate    NUMERIC,
    InstallmentRate NUMERIC,
    GroupID         INTEGER
);

CREATE TABLE Parts (
    PartID   INTEGER PRIMARY KEY,
    PartName TEXT COLLATE CI,
    PartRate NUMERIC
);

CREATE TABLE Accounts (
    AccountNo   TEXT COLLATE CI NOT NULL PRIMARY KEY,
    AccountName TEXT COLLATE CI
);

CREATE TABLE Parties (
    PartyCode TEXT COLLATE CI NOT NULL PRIMARY KEY,
    PartyName TEXT COLLATE CI
);

CREATE TABLE Users (
    UserNo   INTEGER PRIMARY KEY,
    FromDate DATE,
    ToDate   DATE
);

-- Loans given to a person
CREATE TABLE StaffAdvance (
    StaffID     TEXT COLLATE CI,
    AdvanceDate DATE,
    Amount      NUMERIC
);
CREATE INDEX StaffAdvance_StaffID ON StaffAdvance (StaffID, Amount);

-- Stock

CREATE TABLE GatePassHeader (
    GatePassID    INTEGER PRIMARY KEY,
    EntryDate     DATETIME,
    isPosted      BIT,
    GatePassDate  DATE,
    DriverCode    TEXT COLLATE CI,
    ReceivingCode TEXT COLLATE CI,
    AreaCode      TEXT COLLATE CI,
    BranchCode    INTEGER,
    Supply        BIT,
    Sale          BIT,
    [Order]       BIT,
    UserNo        INTEGER
);
CREATE INDEX GatePassHeader_GatePassDate ON GatePassHeader (GatePassDate);
CREATE INDEX GatePassHeader_DriverCode ON GatePassHeader (DriverCode, GatePassDate);
CREATE INDEX GatePassHeader_ReceivingCode ON GatePassHeader (ReceivingCode);
CREATE INDEX GatePassHeader_AreaCode ON GatePassHeader (AreaCode);
CREATE INDEX GatePassHeader_BranchCode ON GatePassHeader (BranchCode);

CREATE TABLE GatePassBody (
    GatePassID        INTEGER,
    ProductID         TEXT COLLATE CI,
    OutNewProducts    NUMERIC,
    ReturnOldProducts NUMERIC,
    ReturnNewProducts NUMERIC
);
CREATE INDEX GatePassBody_GatePassID
    ON GatePassBody (GatePassID, ProductID, OutNewProducts, ReturnOldProducts, ReturnNewProducts);
CREATE INDEX GatePassBody_ProductID
    ON GatePassBody (ProductID, GatePassID, OutNewProducts, ReturnNewProducts);

CREATE TABLE StockInHeader (
    StockID     INTEGER PRIMARY KEY,
    [Date]      DATE,
    BranchCode  INTEGER,
    AccountNo   TEXT COLLATE CI,
    Description TEXT COLLATE CI
);
CREATE INDEX StockInHeader_Date ON StockInHeader ([Date]);
CREATE INDEX StockInHeader_BranchCode ON StockInHeader (BranchCode);
CREATE INDEX StockInHeader_AccountNo ON StockInHeader (AccountNo);

CREATE TABLE StockInBody (
    StockID   INTEGER,
    ProductID TEXT COLLATE CI,
    Qty       NUMERIC,
    Price     NUMERIC,
    Amount    NUMERIC
);
CREATE INDEX StockInBody_StockID ON StockInBody (StockID, ProductID);
CREATE INDEX StockInBody_ProductID ON StockInBody (ProductID, StockID, Qty);

CREATE TABLE StockOutHeader (
    StockID     INTEGER PRIMARY KEY,
    [Date]      DATE,
    BranchCode  INTEGER,
    AccountNo   TEXT COLLATE CI,
    Description TEXT COLLATE CI
);
CREATE INDEX StockOutHeader_Date ON StockOutHeader ([Date]);
CREATE INDEX StockOutHeader_BranchCode ON StockOutHeader (BranchCode);
CREATE INDEX StockOutHeader_AccountNo ON StockOutHeader (AccountNo);

CREATE TABLE StockOutBody (
    StockID   INTEGER,
    ProductID TEXT COLLATE CI,
    Qty       NUMERIC,
    Price     NUMERIC,
    Amount    NUMERIC
);
CREATE INDEX StockOutBody_StockID ON StockOutBody (StockID, ProductID);
CREATE INDEX StockOutBody_ProductID ON StockOutBody (ProductID, StockID, Qty);

CREATE TABLE StockInDetailHeader (
    StockID       INTEGER PRIMARY KEY,
    [Date]        DATE,
    ReceivingCode TEXT COLLATE CI,
    Description   TEXT COLLATE CI
);
CREATE INDEX StockInDetailHeader_Date ON StockInDetailHeader ([Date]);
CREATE INDEX StockInDetailHeader_ReceivingCode ON StockInDetailHeader (ReceivingCode);

CREATE TABLE StockInDetailBody (
    StockID   INTEGER,
    ProductID TEXT COLLATE CI,
    EngineNo  TEXT COLLATE CI,
    ChasisNo  TEXT COLLATE CI
);
CREATE INDEX StockInDetailBody_StockID ON StockInDetailBody (StockID, ProductID);
CREATE INDEX StockInDetailBody_ProductID ON StockInDetailBody (ProductID);
CREATE INDEX StockInDetailBody_EngineNo ON StockInDetailBody (EngineNo, ChasisNo, ProductID);
CREATE INDEX StockInDetailBody_ChasisNo ON StockInDetailBody (ChasisNo);

-- How much there is of each product in each branch, and in how many movements it came and went.
-- The sum over all movements takes the longer the more there have been; this is always at hand.
-- No statement writes it: the triggers at the end of this script do.
CREATE TABLE StockLevels (
    ProductID  TEXT COLLATE CI NOT NULL,
    BranchCode INTEGER NOT NULL,
    Stock      NUMERIC NOT NULL,
    Movements  INTEGER NOT NULL,
    PRIMARY KEY (ProductID, BranchCode)
) WITHOUT ROWID;

-- Instalment accounts

CREATE TABLE InsCustomerHeader (
    InsCustomerID      TEXT COLLATE CI NOT NULL PRIMARY KEY,
    EntryDate          DATETIME,
    isPosted           BIT,
    [Order]            BIT,
    Sale               BIT,
    Old                BIT,
    SmallVehicle       BIT,
    LargeVehicle       BIT,
    CardNo             TEXT COLLATE CI,
    AutoCard           TEXT COLLATE CI,
    Name               TEXT COLLATE CI,
    FName              TEXT COLLATE CI,
    [Cast]             TEXT COLLATE CI,
    DOB                DATE,
    AreaCode           TEXT COLLATE CI,
    SectorID           INTEGER,
    FStaffID           TEXT COLLATE CI,
    ReceivingCode      TEXT COLLATE CI,
    AMStaffID          TEXT COLLATE CI,
    SAMStaffID         TEXT COLLATE CI,
    CMStaffID          TEXT COLLATE CI,
    DriverID           TEXT COLLATE CI,
    NICNew             TEXT COLLATE CI,
    TAddress           TEXT COLLATE CI,
    PAddress           TEXT COLLATE CI,
    City               TEXT COLLATE CI,
    JobAddress         TEXT COLLATE CI,
    PreviousAccount    TEXT COLLATE CI,
    PhoneHouse         TEXT COLLATE CI,
    PhoneJob           TEXT COLLATE CI,
    Mobile             TEXT COLLATE CI,
    GName              TEXT COLLATE CI,
    GFName             TEXT COLLATE CI,
    GCast              TEXT COLLATE CI,
    GDOB               DATE,
    GNICNew            TEXT COLLATE CI,
    GPhoneNo           TEXT COLLATE CI,
    GPAddress          TEXT COLLATE CI,
    GCity              TEXT COLLATE CI,
    GJobAddress        TEXT COLLATE CI,
    SaleDate           DATE,
    ChangeDate         DATE,
    PromiseDate        INTEGER,
    MonthlyInstallment NUMERIC,
    TotalAmount        NUMERIC,
    UserNo             INTEGER,
    Product            TEXT COLLATE CI
);
CREATE INDEX InsCustomerHeader_AreaCode ON InsCustomerHeader (AreaCode, CardNo);
-- The highest running card number of an area is read from the end of its part of this index; for
-- that the expression is spelt as in the statement that asks, and compared as the column is.
CREATE INDEX InsCustomerHeader_AutoCard
    ON InsCustomerHeader (AreaCode, Old, CAST(AutoCard AS int) COLLATE CI);
-- Cards typed by hand are looked up over all areas. An index that began with the card would serve
-- lists that are ordered by it, at the price of reading all accounts for those of a few days.
CREATE INDEX InsCustomerHeader_CardNo ON InsCustomerHeader (Old, CardNo);
CREATE INDEX InsCustomerHeader_SaleDate ON InsCustomerHeader (SaleDate);
CREATE INDEX InsCustomerHeader_SectorID ON InsCustomerHeader (SectorID);
CREATE INDEX InsCustomerHeader_FStaffID ON InsCustomerHeader (FStaffID, SaleDate);
CREATE INDEX InsCustomerHeader_ReceivingCode ON InsCustomerHeader (ReceivingCode);
CREATE INDEX InsCustomerHeader_AMStaffID ON InsCustomerHeader (AMStaffID, SaleDate);
CREATE INDEX InsCustomerHeader_SAMStaffID ON InsCustomerHeader (SAMStaffID, SaleDate);
CREATE INDEX InsCustomerHeader_CMStaffID ON InsCustomerHeader (CMStaffID, SaleDate);
CREATE INDEX InsCustomerHeader_DriverID ON InsCustomerHeader (DriverID, SaleDate);

CREATE TABLE InsCustomerBody (
    serialno      INTEGER PRIMARY KEY AUTOINCREMENT,
    InsCustomerID TEXT COLLATE CI,
    ProductID     TEXT COLLATE CI,
    Qty           NUMERIC,
    Price         NUMERIC,
    Amount        NUMERIC,
    Colour        TEXT COLLATE CI,
    EngineNo      TEXT COLLATE CI,
    ChasisNo      TEXT COLLATE CI,
    VehicleNo     TEXT COLLATE CI
);
CREATE INDEX InsCustomerBody_InsCustomerID ON InsCustomerBody (InsCustomerID, ProductID, Qty);
CREATE INDEX InsCustomerBody_ProductID ON InsCustomerBody (ProductID);
CREATE INDEX InsCustomerBody_EngineNo ON InsCustomerBody (EngineNo);
CREATE INDEX InsCustomerBody_ChasisNo ON InsCustomerBody (ChasisNo);

CREATE TABLE ConvertArea (
    FromInsCustomerID TEXT COLLATE CI,
    FromAmount        NUMERIC,
    TotalAmount       NUMERIC,
    ToInsCustomerID   TEXT COLLATE CI,
    ToAmount          NUMERIC,
    ToDate            DATE
);
CREATE INDEX ConvertArea_FromInsCustomerID ON ConvertArea (FromInsCustomerID);
CREATE INDEX ConvertArea_ToInsCustomerID ON ConvertArea (ToInsCustomerID);
CREATE INDEX ConvertArea_ToDate ON ConvertArea (ToDate);

CREATE TABLE PreviousBalances (
    InsCustomerID  TEXT COLLATE CI,
    PreviousDate   DATE,
    Amount         NUMERIC,
    Previous       BIT,
    ConvertAccount BIT
);
CREATE INDEX PreviousBalances_InsCustomerID
    ON PreviousBalances (InsCustomerID, PreviousDate, Amount);

CREATE TABLE InstallmentBalances (
    InsCustomerID TEXT COLLATE CI,
    Balance       NUMERIC
);
CREATE INDEX InstallmentBalances_InsCustomerID ON InstallmentBalances (InsCustomerID);

-- Money vouchers. The bodies are indexed so that an account's sums need the index alone.

CREATE TABLE RecoveryHeader (
    VoucherID   INTEGER PRIMARY KEY,
    EntryDate   DATETIME,
    isPosted    BIT,
    VoucherDate DATE,
    AreaCode    TEXT COLLATE CI,
    AMStaffID   TEXT COLLATE CI,
    SAMStaffID  TEXT COLLATE CI,
    StaffID     TEXT COLLATE CI,
    UserNo      INTEGER
);
CREATE INDEX RecoveryHeader_VoucherDate ON RecoveryHeader (VoucherDate);
CREATE INDEX RecoveryHeader_AreaCode ON RecoveryHeader (AreaCode, VoucherDate);
CREATE INDEX RecoveryHeader_AMStaffID ON RecoveryHeader (AMStaffID, VoucherDate);
CREATE INDEX RecoveryHeader_SAMStaffID ON RecoveryHeader (SAMStaffID, VoucherDate);
CREATE INDEX RecoveryHeader_StaffID ON RecoveryHeader (StaffID);

CREATE TABLE RecoveryBody (
    VoucherID     INTEGER,
    VoucherDate   DATE,
    InsCustomerID TEXT COLLATE CI,
    CardNo        TEXT COLLATE CI,
    ReceiptNo     INTEGER,
    Amount        NUMERIC
);
CREATE INDEX RecoveryBody_VoucherID ON RecoveryBody (VoucherID, ReceiptNo, Amount);
CREATE INDEX RecoveryBody_InsCustomerID ON RecoveryBody (InsCustomerID, VoucherDate, Amount);
CREATE INDEX RecoveryBody_VoucherDate ON RecoveryBody (VoucherDate);

CREATE TABLE ConcessionHeader (
    VoucherID   INTEGER PRIMARY KEY,
    VoucherDate DATE,
    AreaCode    TEXT COLLATE CI
);
CREATE INDEX ConcessionHeader_VoucherDate ON ConcessionHeader (VoucherDate);
CREATE INDEX ConcessionHeader_AreaCode ON ConcessionHeader (AreaCode);

CREATE TABLE ConcessionBody (
    VoucherID     INTEGER,
    VoucherDate   DATE,
    InsCustomerID TEXT COLLATE CI,
    CardNo        TEXT COLLATE CI,
    Remarks       TEXT COLLATE CI,
    Amount        NUMERIC
);
CREATE INDEX ConcessionBody_VoucherID ON ConcessionBody (VoucherID, Amount);
CREATE INDEX ConcessionBody_InsCustomerID ON ConcessionBody (InsCustomerID, VoucherDate, Amount);

CREATE TABLE ReturnHeader (
    VoucherID   INTEGER PRIMARY KEY,
    VoucherDate DATE,
    AreaCode    TEXT COLLATE CI
);
CREATE INDEX ReturnHeader_VoucherDate ON ReturnHeader (VoucherDate);
CREATE INDEX ReturnHeader_AreaCode ON ReturnHeader (AreaCode);

CREATE TABLE ReturnBody (
    VoucherID     INTEGER,
    VoucherDate   DATE,
    InsCustomerID TEXT COLLATE CI,
    CardNo        TEXT COLLATE CI,
    Remarks       TEXT COLLATE CI,
    TotalRecovery NUMERIC,
    TotalAmount   NUMERIC,
    Amount        NUMERIC
);
CREATE INDEX ReturnBody_VoucherID ON ReturnBody (VoucherID, Amount);
CREATE INDEX ReturnBody_InsCustomerID ON ReturnBody (InsCustomerID, VoucherDate, Amount);

CREATE TABLE ReturnProducts (
    VoucherID     INTEGER,
    InsCustomerID TEXT COLLATE CI,
    ProductID     TEXT COLLATE CI,
    Qty           NUMERIC
);
CREATE INDEX ReturnProducts_VoucherID ON ReturnProducts (VoucherID);
CREATE INDEX ReturnProducts_InsCustomerID ON ReturnProducts (InsCustomerID);
CREATE INDEX ReturnProducts_ProductID ON ReturnProducts (ProductID);

-- Payroll

CREATE TABLE Salaries (
    StaffID     TEXT COLLATE CI NOT NULL,
    SalaryMonth DATE NOT NULL,
    BasicSalary NUMERIC,
    SaleComm    NUMERIC,
    SalePrize   NUMERIC,
    OrderComm   NUMERIC,
    OrderPrize  NUMERIC,
    RecComm     NUMERIC,
    RecPrize    NUMERIC,
    SupplyComm  NUMERIC,
    GPFund      NUMERIC,
    KFFund      NUMERIC,
    Recloan     NUMERIC,
    Other       NUMERIC,
    Advance     NUMERIC,
    Less        NUMERIC,
    PRIMARY KEY (StaffID, SalaryMonth)
);
CREATE INDEX Salaries_SalaryMonth ON Salaries (SalaryMonth);

CREATE TABLE FrenchiserSalaryHeader (
    StaffID     TEXT COLLATE CI NOT NULL,
    SalaryMonth DATE NOT NULL,
    BasicSalary NUMERIC,
    GPFund      NUMERIC,
    KFFund      NUMERIC,
    Recloan     NUMERIC,
    Other       NUMERIC,
    Less        NUMERIC,
    Advance     NUMERIC,
    PRIMARY KEY (StaffID, SalaryMonth)
);
CREATE INDEX FrenchiserSalaryHeader_SalaryMonth ON FrenchiserSalaryHeader (SalaryMonth);

CREATE TABLE FrenchiserSalaryBody (
    StaffID     TEXT COLLATE CI,
    SalaryMonth DATE,
    ProductID   TEXT COLLATE CI,
    Type        TEXT COLLATE CI,
    Commision   NUMERIC,
    Qty         NUMERIC,
    Amount      NUMERIC
);
CREATE INDEX FrenchiserSalaryBody_StaffID
    ON FrenchiserSalaryBody (StaffID, SalaryMonth, Amount);
CREATE INDEX FrenchiserSalaryBody_ProductID ON FrenchiserSalaryBody (ProductID);

CREATE TABLE WorkShopSalaryHeader (
    StaffID     TEXT COLLATE CI NOT NULL,
    SalaryMonth DATE NOT NULL,
    BasicSalary NUMERIC,
    GPFund      NUMERIC,
    KFFund      NUMERIC,
    Recloan     NUMERIC,
    Other       NUMERIC,
    Less        NUMERIC,
    Advance     NUMERIC,
    PRIMARY KEY (StaffID, SalaryMonth)
);
CREATE INDEX WorkShopSalaryHeader_SalaryMonth ON WorkShopSalaryHeader (SalaryMonth);

CREATE TABLE WorkShopSalaryBody (
    StaffID     TEXT COLLATE CI,
    SalaryMonth DATE,
    PartID      INTEGER,
    Amount      NUMERIC
);
CREATE INDEX WorkShopSalaryBody_StaffID ON WorkShopSalaryBody (StaffID, SalaryMonth, Amount);
CREATE INDEX WorkShopSalaryBody_PartID ON WorkShopSalaryBody (PartID);

CREATE TABLE SaleCommission (
    ProductID    TEXT COLLATE CI,
    Driver       NUMERIC,
    AreaManager  NUMERIC,
    SAreaManager NUMERIC,
    Frenchiser   NUMERIC
);
CREATE INDEX SaleCommission_ProductID ON SaleCommission (ProductID);

CREATE TABLE OrderCommission (
    ProductID       TEXT COLLATE CI,
    DriverSmall     NUMERIC,
    DriverLarge     NUMERIC,
    AreaManager     NUMERIC,
    SAreaManager    NUMERIC,
    CheckingManager NUMERIC,
    Frenchiser      NUMERIC
);
CREATE INDEX OrderCommission_ProductID ON OrderCommission (ProductID);

CREATE TABLE SalePrize (
    GroupID INTEGER,
    Less    NUMERIC,
    More    NUMERIC,
    Driver  NUMERIC
);
CREATE INDEX SalePrize_GroupID ON SalePrize (GroupID);

CREATE TABLE OrderPrize (
    GroupID      INTEGER,
    Less         NUMERIC,
    More         NUMERIC,
    Driver       NUMERIC,
    AreaManager  NUMERIC,
    SAreaManager NUMERIC
);
CREATE INDEX OrderPrize_GroupID ON OrderPrize (GroupID);

CREATE TABLE RecoveryCommissionHeader (
    PerItem NUMERIC
);

CREATE TABLE RecoveryCommission (
    Less         NUMERIC,
    More         NUMERIC,
    AreaManager  NUMERIC,
    SAreaManager NUMERIC
);

CREATE TABLE RecoveryPrize (
    Less         NUMERIC,
    More         NUMERIC,
    AreaManager  NUMERIC,
    SAreaManager NUMERIC
);

CREATE TABLE cheque (
    ChequeDate DATE,
    staffid    TEXT COLLATE CI,
    amount     NUMERIC
);
CREATE INDEX cheque_staffid ON cheque (staffid, ChequeDate, amount);

-- Workshop

CREATE TABLE WorkShopPartsHeader (
    VoucherID   INTEGER PRIMARY KEY,
    VoucherDate DATE,
    StaffID     TEXT COLLATE CI,
    TotalAmount NUMERIC
);
CREATE INDEX WorkShopPartsHeader_VoucherDate ON WorkShopPartsHeader (VoucherDate);
CREATE INDEX WorkShopPartsHeader_StaffID ON WorkShopPartsHeader (StaffID, VoucherDate);

CREATE TABLE WorkShopPartsBody (
    VoucherID INTEGER,
    PartID    INTEGER,
    Rate      NUMERIC,
    Qty       NUMERIC,
    Amount    NUMERIC
);
CREATE INDEX WorkShopPartsBody_VoucherID ON WorkShopPartsBody (VoucherID, PartID, Amount);
CREATE INDEX WorkShopPartsBody_PartID ON WorkShopPartsBody (PartID);

-- Partnership

CREATE TABLE PartnershipProfitHeader (
    VoucherID INTEGER PRIMARY KEY,
    AreaCode  TEXT COLLATE CI,
    [Month]   DATE
);
CREATE INDEX PartnershipProfitHeader_AreaCode ON PartnershipProfitHeader (AreaCode);
CREATE INDEX PartnershipProfitHeader_Month ON PartnershipProfitHeader ([Month]);

CREATE TABLE PartnershipProfitBody (
    VoucherID INTEGER,
    Income    NUMERIC,
    Less      NUMERIC,
    Expense   NUMERIC
);
CREATE INDEX PartnershipProfitBody_VoucherID ON PartnershipProfitBody (VoucherID);

-- Work tables of the conversion of an account. The first has the columns of InsCustomerHeader
-- in their order, since rows go both ways with `select *`.

CREATE TABLE Tempinscustomerheader (
    InsCustomerID      TEXT COLLATE CI,
    EntryDate          DATETIME,
    isPosted           BIT,
    [Order]            BIT,
    Sale               BIT,
    Old                BIT,
    SmallVehicle       BIT,
    LargeVehicle       BIT,
    CardNo             TEXT COLLATE CI,
    AutoCard           TEXT COLLATE CI,
    Name               TEXT COLLATE CI,
    FName              TEXT COLLATE CI,
    [Cast]             TEXT COLLATE CI,
    DOB                DATE,
    AreaCode           TEXT COLLATE CI,
    SectorID           INTEGER,
    FStaffID           TEXT COLLATE CI,
    ReceivingCode      TEXT COLLATE CI,
    AMStaffID          TEXT COLLATE CI,
    SAMStaffID         TEXT COLLATE CI,
    CMStaffID          TEXT COLLATE CI,
    DriverID           TEXT COLLATE CI,
    NICNew             TEXT COLLATE CI,
    TAddress           TEXT COLLATE CI,
    PAddress           TEXT COLLATE CI,
    City               TEXT COLLATE CI,
    JobAddress         TEXT COLLATE CI,
    PreviousAccount    TEXT COLLATE CI,
    PhoneHouse         TEXT COLLATE CI,
    PhoneJob           TEXT COLLATE CI,
    Mobile             TEXT COLLATE CI,
    GName              TEXT COLLATE CI,
    GFName             TEXT COLLATE CI,
    GCast              TEXT COLLATE CI,
    GDOB               DATE,
    GNICNew            TEXT COLLATE CI,
    GPhoneNo           TEXT COLLATE CI,
    GPAddress          TEXT COLLATE CI,
    GCity              TEXT COLLATE CI,
    GJobAddress        TEXT COLLATE CI,
    SaleDate           DATE,
    ChangeDate         DATE,
    PromiseDate        INTEGER,
    MonthlyInstallment NUMERIC,
    TotalAmount        NUMERIC,
    UserNo             INTEGER,
    Product            TEXT COLLATE CI
);

CREATE TABLE TempinscustomerBody (
    serialno      INTEGER,
    InsCustomerID TEXT COLLATE CI,
    ProductID     TEXT COLLATE CI,
    Qty           NUMERIC,
    Price         NUMERIC,
    Amount        NUMERIC,
    Colour        TEXT COLLATE CI,
    EngineNo      TEXT COLLATE CI,
    ChasisNo      TEXT COLLATE CI,
    VehicleNo     TEXT COLLATE CI
);

CREATE TABLE tempproduct (
    InsCustomerID TEXT COLLATE CI
);
CREATE INDEX tempproduct_InsCustomerID ON tempproduct (InsCustomerID);

-- Views

-- What came in, went out, and was carried by gate passes. Old pieces and products that a customer
-- returns are not new stock.
CREATE VIEW StockMovements AS
SELECT b.ProductID AS ProductID, h.BranchCode AS BranchCode, b.Qty AS Qty, 1 AS Movements
FROM StockInHeader h JOIN StockInBody b ON b.StockID = h.StockID
UNION ALL
SELECT b.ProductID, h.BranchCode, -b.Qty, 1
FROM StockOutHeader h JOIN StockOutBody b ON b.StockID = h.StockID
UNION ALL
SELECT b.ProductID, h.BranchCode, ifnull(b.ReturnNewProducts, 0) - ifnull(b.OutNewProducts, 0), 1
FROM GatePassHeader h JOIN GatePassBody b ON b.GatePassID = h.GatePassID;

CREATE VIEW vuCurrentStock AS
SELECT p.ProductID AS ProductID, p.ProductName AS ProductName, l.BranchCode AS BranchCode,
       round(l.Stock, 4) AS Stock
FROM StockLevels l JOIN Products p ON p.ProductID = l.ProductID
WHERE l.Movements > 0;

CREATE VIEW vuAccounts AS SELECT * FROM Accounts;

-- What keeps StockLevels. A row inserted into StockMovements is a movement that came; with its
-- quantity and its count negative, one that is gone.

CREATE TRIGGER StockMovements_Insert INSTEAD OF INSERT ON StockMovements
WHEN NEW.ProductID IS NOT NULL AND NEW.BranchCode IS NOT NULL BEGIN
    INSERT INTO StockLevels (ProductID, BranchCode, Stock, Movements)
    VALUES (NEW.ProductID, NEW.BranchCode, ifnull(NEW.Qty, 0) + 0, NEW.Movements)
    ON CONFLICT DO UPDATE SET Stock = Stock + excluded.Stock,
                              Movements = Movements + excluded.Movements;
END;

CREATE TRIGGER StockInBody_Insert AFTER INSERT ON StockInBody BEGIN
    INSERT INTO StockMovements
    SELECT NEW.ProductID, BranchCode, NEW.Qty, 1
    FROM StockInHeader WHERE StockID = NEW.StockID;
END;
CREATE TRIGGER StockInBody_Delete AFTER DELETE ON StockInBody BEGIN
    INSERT INTO StockMovements
    SELECT OLD.ProductID, BranchCode, -OLD.Qty, -1
    FROM StockInHeader WHERE StockID = OLD.StockID;
END;
CREATE TRIGGER StockInBody_Update AFTER UPDATE OF StockID, ProductID, Qty
ON StockInBody BEGIN
    INSERT INTO StockMovements
    SELECT OLD.ProductID, BranchCode, -OLD.Qty, -1
    FROM StockInHeader WHERE StockID = OLD.StockID;
    INSERT INTO StockMovements
    SELECT NEW.ProductID, BranchCode, NEW.Qty, 1
    FROM StockInHeader WHERE StockID = NEW.StockID;
END;
CREATE TRIGGER StockInHeader_Insert AFTER INSERT ON StockInHeader BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, NEW.BranchCode, Qty, 1
    FROM StockInBody WHERE StockID = NEW.StockID;
END;
CREATE TRIGGER StockInHeader_Delete AFTER DELETE ON StockInHeader BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, OLD.BranchCode, -Qty, -1
    FROM StockInBody WHERE StockID = OLD.StockID;
END;
CREATE TRIGGER StockInHeader_Update AFTER UPDATE OF StockID, BranchCode ON StockInHeader
WHEN OLD.StockID IS NOT NEW.StockID OR OLD.BranchCode IS NOT NEW.BranchCode BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, OLD.BranchCode, -Qty, -1
    FROM StockInBody WHERE StockID = OLD.StockID;
    INSERT INTO StockMovements
    SELECT ProductID, NEW.BranchCode, Qty, 1
    FROM StockInBody WHERE StockID = NEW.StockID;
END;

CREATE TRIGGER StockOutBody_Insert AFTER INSERT ON StockOutBody BEGIN
    INSERT INTO StockMovements
    SELECT NEW.ProductID, BranchCode, -NEW.Qty, 1
    FROM StockOutHeader WHERE StockID = NEW.StockID;
END;
CREATE TRIGGER StockOutBody_Delete AFTER DELETE ON StockOutBody BEGIN
    INSERT INTO StockMovements
    SELECT OLD.ProductID, BranchCode, OLD.Qty, -1
    FROM StockOutHeader WHERE StockID = OLD.StockID;
END;
CREATE TRIGGER StockOutBody_Update AFTER UPDATE OF StockID, ProductID, Qty
ON StockOutBody BEGIN
    INSERT INTO StockMovements
    SELECT OLD.ProductID, BranchCode, OLD.Qty, -1
    FROM StockOutHeader WHERE StockID = OLD.StockID;
    INSERT INTO StockMovements
    SELECT NEW.ProductID, BranchCode, -NEW.Qty, 1
    FROM StockOutHeader WHERE StockID = NEW.StockID;
END;
CREATE TRIGGER StockOutHeader_Insert AFTER INSERT ON StockOutHeader BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, NEW.BranchCode, -Qty, 1
    FROM StockOutBody WHERE StockID = NEW.StockID;
END;
CREATE TRIGGER StockOutHeader_Delete AFTER DELETE ON StockOutHeader BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, OLD.BranchCode, Qty, -1
    FROM StockOutBody WHERE StockID = OLD.StockID;
END;
CREATE TRIGGER StockOutHeader_Update AFTER UPDATE OF StockID, BranchCode ON StockOutHeader
WHEN OLD.StockID IS NOT NEW.StockID OR OLD.BranchCode IS NOT NEW.BranchCode BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, OLD.BranchCode, Qty, -1
    FROM StockOutBody WHERE StockID = OLD.StockID;
    INSERT INTO StockMovements
    SELECT ProductID, NEW.BranchCode, -Qty, 1
    FROM StockOutBody WHERE StockID = NEW.StockID;
END;

CREATE TRIGGER GatePassBody_Insert AFTER INSERT ON GatePassBody BEGIN
    INSERT INTO StockMovements
    SELECT NEW.ProductID, BranchCode, ifnull(NEW.ReturnNewProducts, 0)
           - ifnull(NEW.OutNewProducts, 0), 1
    FROM GatePassHeader WHERE GatePassID = NEW.GatePassID;
END;
CREATE TRIGGER GatePassBody_Delete AFTER DELETE ON GatePassBody BEGIN
    INSERT INTO StockMovements
    SELECT OLD.ProductID, BranchCode, ifnull(OLD.OutNewProducts, 0)
           - ifnull(OLD.ReturnNewProducts, 0), -1
    FROM GatePassHeader WHERE GatePassID = OLD.GatePassID;
END;
CREATE TRIGGER GatePassBody_Update AFTER UPDATE OF GatePassID, ProductID, OutNewProducts, ReturnNewProducts
ON GatePassBody BEGIN
    INSERT INTO StockMovements
    SELECT OLD.ProductID, BranchCode, ifnull(OLD.OutNewProducts, 0)
           - ifnull(OLD.ReturnNewProducts, 0), -1
    FROM GatePassHeader WHERE GatePassID = OLD.GatePassID;
    INSERT INTO StockMovements
    SELECT NEW.ProductID, BranchCode, ifnull(NEW.ReturnNewProducts, 0)
           - ifnull(NEW.OutNewProducts, 0), 1
    FROM GatePassHeader WHERE GatePassID = NEW.GatePassID;
END;
CREATE TRIGGER GatePassHeader_Insert AFTER INSERT ON GatePassHeader BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, NEW.BranchCode, ifnull(ReturnNewProducts, 0)
           - ifnull(OutNewProducts, 0), 1
    FROM GatePassBody WHERE GatePassID = NEW.GatePassID;
END;
CREATE TRIGGER GatePassHeader_Delete AFTER DELETE ON GatePassHeader BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, OLD.BranchCode, ifnull(OutNewProducts, 0)
           - ifnull(ReturnNewProducts, 0), -1
    FROM GatePassBody WHERE GatePassID = OLD.GatePassID;
END;
CREATE TRIGGER GatePassHeader_Update AFTER UPDATE OF GatePassID, BranchCode ON GatePassHeader
WHEN OLD.GatePassID IS NOT NEW.GatePassID OR OLD.BranchCode IS NOT NEW.BranchCode BEGIN
    INSERT INTO StockMovements
    SELECT ProductID, OLD.BranchCode, ifnull(OutNewProducts, 0)
           - ifnull(ReturnNewProducts, 0), -1
    FROM GatePassBody WHERE GatePassID = OLD.GatePassID;
    INSERT INTO StockMovements
    SELECT ProductID, NEW.BranchCode, ifnull(ReturnNewProducts, 0)
           - ifnull(OutNewProducts, 0), 1
    FROM GatePassBody WHERE GatePassID = NEW.GatePassID;
END;
