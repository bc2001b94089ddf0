-- The company's database on SQL Server, 2019 or later.
--
-- Run it with sqlcmd on a database that is empty, or that this script has made before: what is
-- there stays, with its rows. The database's collation has to be
-- Latin1_General_100_CI_AS_SC_UTF8: texts compare without regard to case and to blanks at the
-- end, and a plain literal carries Urdu. Lengths are in bytes; a letter of Urdu takes two.
--
-- Nothing here enforces that a code has its master row: documents may name people, areas and
-- products that are gone, and the joins say what becomes of them. Columns stand in the order in
-- which `select *` has to give them.

set ansi_nulls, ansi_padding, ansi_warnings, arithabort, concat_null_yields_null on;
set quoted_identifier, ansi_null_dflt_on on;
set numeric_roundabort off;
set nocount on;
go

-- Under any other collation codes in another case would be missed, or Urdu be lost.
if cast(databasepropertyex(db_name(), 'Collation') as varchar(128)) <>
   'Latin1_General_100_CI_AS_SC_UTF8'
begin
    raiserror('Make the database with: collate Latin1_General_100_CI_AS_SC_UTF8', 16, 1);
    set noexec on;
end
go

-- The version of this schema, in its one row. A transaction of the library begins by locking this
-- row, so that of two who save at once the second waits for the first.
if object_id(N'dbo.SchemaVersion', N'U') is null
create table dbo.SchemaVersion (
    Version int not null primary key
);
go

-- Masters, kept by the host
if object_id(N'dbo.Branches', N'U') is null
create table dbo.Branches (
    BranchCode int not null primary key,
    BranchName varchar(200)
);
go

if object_id(N'dbo.Areas', N'U') is null
create table dbo.Areas (
    AreaCode   varchar(40) not null primary key,
    AreaName   varchar(200),
    AMStaffID  varchar(40),
    SAMStaffID varchar(40),
    BranchCode int
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.Areas')
                 and name = N'Areas_BranchCode')
create index Areas_BranchCode on dbo.Areas (BranchCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.Areas')
                 and name = N'Areas_AMStaffID')
create index Areas_AMStaffID on dbo.Areas (AMStaffID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.Areas')
                 and name = N'Areas_SAMStaffID')
create index Areas_SAMStaffID on dbo.Areas (SAMStaffID);
go

if object_id(N'dbo.Sectors', N'U') is null
create table dbo.Sectors (
    SectorID   int not null primary key,
    SectorName varchar(200)
);
go

if object_id(N'dbo.Staff', N'U') is null
create table dbo.Staff (
    StaffID     varchar(40) not null primary key,
    Name        varchar(200),
    FName       varchar(200),
    Address     varchar(500),
    Designation varchar(200),
    BranchCode  int,
    FieldWorker bit,
    Frenchiser  bit,
    Machenic    bit,
    BasicSalary decimal(18,4),
    Advance     decimal(18,4),
    GPFund      decimal(18,4),
    KFFund      decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.Staff')
                 and name = N'Staff_BranchCode')
create index Staff_BranchCode on dbo.Staff (BranchCode);
go

if object_id(N'dbo.Products', N'U') is null
create table dbo.Products (
    ProductID       varchar(20) not null primary key,
    ProductName     varchar(200),
    PurchaseRate    decimal(18,4),
    InstallmentRate decimal(18,4),
    GroupID         int
);
go

if object_id(N'dbo.Parts', N'U') is null
create table dbo.Parts (
    PartID   int not null primary key,
    PartName varchar(200),
    PartRate decimal(18,4)
);
go

if object_id(N'dbo.Accounts', N'U') is null
create table dbo.Accounts (
    AccountNo   varchar(40) not null primary key,
    AccountName varchar(200)
);
go

if object_id(N'dbo.Parties', N'U') is null
create table dbo.Parties (
    PartyCode varchar(40) not null primary key,
    PartyName varchar(200)
);
go

if object_id(N'dbo.Users', N'U') is null
create table dbo.Users (
    UserNo          int not null primary key,
    FromDate        date,
    ToDate          date,
    UserName        varchar(200),
    PasswordHash    varchar(200),
    Administrator   bit not null default 0,
    AllowPostedEdit bit not null default 0,
    BranchCode      varchar(20) not null default '0'
);
go

-- Loans given to a person
if object_id(N'dbo.StaffAdvance', N'U') is null
create table dbo.StaffAdvance (
    StaffID     varchar(40),
    AdvanceDate date,
    Amount      decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StaffAdvance')
                 and name = N'StaffAdvance_StaffID')
create index StaffAdvance_StaffID on dbo.StaffAdvance (StaffID, Amount);
go

-- Stock
if object_id(N'dbo.GatePassHeader', N'U') is null
create table dbo.GatePassHeader (
    GatePassID    int not null primary key,
    EntryDate     datetime2(0),
    isPosted      bit,
    GatePassDate  date,
    DriverCode    varchar(40),
    ReceivingCode varchar(40),
    AreaCode      varchar(40),
    BranchCode    int,
    Supply        bit,
    Sale          bit,
    [Order]       bit,
    UserNo        int
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassHeader')
                 and name = N'GatePassHeader_GatePassDate')
create index GatePassHeader_GatePassDate on dbo.GatePassHeader (GatePassDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassHeader')
                 and name = N'GatePassHeader_DriverCode')
create index GatePassHeader_DriverCode on dbo.GatePassHeader (DriverCode, GatePassDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassHeader')
                 and name = N'GatePassHeader_ReceivingCode')
create index GatePassHeader_ReceivingCode on dbo.GatePassHeader (ReceivingCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassHeader')
                 and name = N'GatePassHeader_AreaCode')
create index GatePassHeader_AreaCode on dbo.GatePassHeader (AreaCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassHeader')
                 and name = N'GatePassHeader_BranchCode')
create index GatePassHeader_BranchCode on dbo.GatePassHeader (BranchCode);
go

if object_id(N'dbo.GatePassBody', N'U') is null
create table dbo.GatePassBody (
    GatePassID        int,
    ProductID         varchar(20),
    OutNewProducts    decimal(18,4),
    ReturnOldProducts decimal(18,4),
    ReturnNewProducts decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassBody')
                 and name = N'GatePassBody_GatePassID')
create index GatePassBody_GatePassID
    on dbo.GatePassBody (GatePassID, ProductID, OutNewProducts, ReturnOldProducts,
                         ReturnNewProducts);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.GatePassBody')
                 and name = N'GatePassBody_ProductID')
create index GatePassBody_ProductID
    on dbo.GatePassBody (ProductID, GatePassID, OutNewProducts, ReturnNewProducts);
go

if object_id(N'dbo.StockInHeader', N'U') is null
create table dbo.StockInHeader (
    StockID     int not null primary key,
    [Date]      date,
    BranchCode  int,
    AccountNo   varchar(40),
    Description varchar(1000)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInHeader')
                 and name = N'StockInHeader_Date')
create index StockInHeader_Date on dbo.StockInHeader ([Date]);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInHeader')
                 and name = N'StockInHeader_BranchCode')
create index StockInHeader_BranchCode on dbo.StockInHeader (BranchCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInHeader')
                 and name = N'StockInHeader_AccountNo')
create index StockInHeader_AccountNo on dbo.StockInHeader (AccountNo);
go

if object_id(N'dbo.StockInBody', N'U') is null
create table dbo.StockInBody (
    StockID   int,
    ProductID varchar(20),
    Qty       decimal(18,4),
    Price     decimal(18,4),
    Amount    decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInBody')
                 and name = N'StockInBody_StockID')
create index StockInBody_StockID on dbo.StockInBody (StockID, ProductID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInBody')
                 and name = N'StockInBody_ProductID')
create index StockInBody_ProductID on dbo.StockInBody (ProductID, StockID, Qty);
go

if object_id(N'dbo.StockOutHeader', N'U') is null
create table dbo.StockOutHeader (
    StockID     int not null primary key,
    [Date]      date,
    BranchCode  int,
    AccountNo   varchar(40),
    Description varchar(1000)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockOutHeader')
                 and name = N'StockOutHeader_Date')
create index StockOutHeader_Date on dbo.StockOutHeader ([Date]);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockOutHeader')
                 and name = N'StockOutHeader_BranchCode')
create index StockOutHeader_BranchCode on dbo.StockOutHeader (BranchCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockOutHeader')
                 and name = N'StockOutHeader_AccountNo')
create index StockOutHeader_AccountNo on dbo.StockOutHeader (AccountNo);
go

if object_id(N'dbo.StockOutBody', N'U') is null
create table dbo.StockOutBody (
    StockID   int,
    ProductID varchar(20),
    Qty       decimal(18,4),
    Price     decimal(18,4),
    Amount    decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockOutBody')
                 and name = N'StockOutBody_StockID')
create index StockOutBody_StockID on dbo.StockOutBody (StockID, ProductID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockOutBody')
                 and name = N'StockOutBody_ProductID')
create index StockOutBody_ProductID on dbo.StockOutBody (ProductID, StockID, Qty);
go

if object_id(N'dbo.StockInDetailHeader', N'U') is null
create table dbo.StockInDetailHeader (
    StockID       int not null primary key,
    [Date]        date,
    ReceivingCode varchar(40),
    Description   varchar(1000)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInDetailHeader')
                 and name = N'StockInDetailHeader_Date')
create index StockInDetailHeader_Date on dbo.StockInDetailHeader ([Date]);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInDetailHeader')
                 and name = N'StockInDetailHeader_ReceivingCode')
create index StockInDetailHeader_ReceivingCode on dbo.StockInDetailHeader (ReceivingCode);
go

if object_id(N'dbo.StockInDetailBody', N'U') is null
create table dbo.StockInDetailBody (
    StockID   int,
    ProductID varchar(20),
    EngineNo  varchar(100),
    ChasisNo  varchar(100)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInDetailBody')
                 and name = N'StockInDetailBody_StockID')
create index StockInDetailBody_StockID on dbo.StockInDetailBody (StockID, ProductID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInDetailBody')
                 and name = N'StockInDetailBody_ProductID')
create index StockInDetailBody_ProductID on dbo.StockInDetailBody (ProductID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInDetailBody')
                 and name = N'StockInDetailBody_EngineNo')
create index StockInDetailBody_EngineNo on dbo.StockInDetailBody (EngineNo, ChasisNo, ProductID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.StockInDetailBody')
                 and name = N'StockInDetailBody_ChasisNo')
create index StockInDetailBody_ChasisNo on dbo.StockInDetailBody (ChasisNo);
go

-- Instalment accounts
if object_id(N'dbo.InsCustomerHeader', N'U') is null
create table dbo.InsCustomerHeader (
    InsCustomerID      varchar(101) not null primary key,
    EntryDate          datetime2(0),
    isPosted           bit,
    [Order]            bit,
    Sale               bit,
    Old                bit,
    SmallVehicle       bit,
    LargeVehicle       bit,
    CardNo             varchar(60),
    AutoCard           varchar(20),
    Name               varchar(200),
    FName              varchar(200),
    [Cast]             varchar(200),
    DOB                date,
    AreaCode           varchar(40),
    SectorID           int,
    FStaffID           varchar(40),
    ReceivingCode      varchar(40),
    AMStaffID          varchar(40),
    SAMStaffID         varchar(40),
    CMStaffID          varchar(40),
    DriverID           varchar(40),
    NICNew             varchar(60),
    TAddress           varchar(500),
    PAddress           varchar(500),
    City               varchar(200),
    JobAddress         varchar(500),
    PreviousAccount    varchar(101),
    PhoneHouse         varchar(100),
    PhoneJob           varchar(100),
    Mobile             varchar(100),
    GName              varchar(200),
    GFName             varchar(200),
    GCast              varchar(200),
    GDOB               date,
    GNICNew            varchar(60),
    GPhoneNo           varchar(100),
    GPAddress          varchar(500),
    GCity              varchar(200),
    GJobAddress        varchar(500),
    SaleDate           date,
    ChangeDate         date,
    PromiseDate        int,
    MonthlyInstallment decimal(18,4),
    TotalAmount        decimal(18,4),
    UserNo             int,
    Product            varchar(4000)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_AreaCode')
create index InsCustomerHeader_AreaCode on dbo.InsCustomerHeader (AreaCode, CardNo);
go
-- The highest running card number of an area is read from the cards of that area alone. (A column
-- computed from it would stand in `select *`, which rows of accounts are copied with.)
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_AutoCard')
create index InsCustomerHeader_AutoCard on dbo.InsCustomerHeader (AreaCode, Old, AutoCard);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_CardNo')
create index InsCustomerHeader_CardNo on dbo.InsCustomerHeader (Old, CardNo);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_SaleDate')
create index InsCustomerHeader_SaleDate on dbo.InsCustomerHeader (SaleDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_SectorID')
create index InsCustomerHeader_SectorID on dbo.InsCustomerHeader (SectorID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_FStaffID')
create index InsCustomerHeader_FStaffID on dbo.InsCustomerHeader (FStaffID, SaleDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_ReceivingCode')
create index InsCustomerHeader_ReceivingCode on dbo.InsCustomerHeader (ReceivingCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_AMStaffID')
create index InsCustomerHeader_AMStaffID on dbo.InsCustomerHeader (AMStaffID, SaleDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_SAMStaffID')
create index InsCustomerHeader_SAMStaffID on dbo.InsCustomerHeader (SAMStaffID, SaleDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_CMStaffID')
create index InsCustomerHeader_CMStaffID on dbo.InsCustomerHeader (CMStaffID, SaleDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerHeader')
                 and name = N'InsCustomerHeader_DriverID')
create index InsCustomerHeader_DriverID on dbo.InsCustomerHeader (DriverID, SaleDate);
go

if object_id(N'dbo.InsCustomerBody', N'U') is null
create table dbo.InsCustomerBody (
    serialno      int identity(1,1) not null primary key,
    InsCustomerID varchar(101),
    ProductID     varchar(20),
    Qty           decimal(18,4),
    Price         decimal(18,4),
    Amount        decimal(18,4),
    Colour        varchar(100),
    EngineNo      varchar(100),
    ChasisNo      varchar(100),
    VehicleNo     varchar(100)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerBody')
                 and name = N'InsCustomerBody_InsCustomerID')
create index InsCustomerBody_InsCustomerID on dbo.InsCustomerBody (InsCustomerID, ProductID, Qty);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerBody')
                 and name = N'InsCustomerBody_ProductID')
create index InsCustomerBody_ProductID on dbo.InsCustomerBody (ProductID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerBody')
                 and name = N'InsCustomerBody_EngineNo')
create index InsCustomerBody_EngineNo on dbo.InsCustomerBody (EngineNo);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InsCustomerBody')
                 and name = N'InsCustomerBody_ChasisNo')
create index InsCustomerBody_ChasisNo on dbo.InsCustomerBody (ChasisNo);
go

if object_id(N'dbo.ConvertArea', N'U') is null
create table dbo.ConvertArea (
    FromInsCustomerID varchar(101),
    FromAmount        decimal(18,4),
    TotalAmount       decimal(18,4),
    ToInsCustomerID   varchar(101),
    ToAmount          decimal(18,4),
    ToDate            date
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConvertArea')
                 and name = N'ConvertArea_FromInsCustomerID')
create index ConvertArea_FromInsCustomerID on dbo.ConvertArea (FromInsCustomerID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConvertArea')
                 and name = N'ConvertArea_ToInsCustomerID')
create index ConvertArea_ToInsCustomerID on dbo.ConvertArea (ToInsCustomerID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConvertArea')
                 and name = N'ConvertArea_ToDate')
create index ConvertArea_ToDate on dbo.ConvertArea (ToDate);
go

if object_id(N'dbo.PreviousBalances', N'U') is null
create table dbo.PreviousBalances (
    InsCustomerID  varchar(101),
    PreviousDate   date,
    Amount         decimal(18,4),
    Previous       bit,
    ConvertAccount bit
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.PreviousBalances')
                 and name = N'PreviousBalances_InsCustomerID')
create index PreviousBalances_InsCustomerID
    on dbo.PreviousBalances (InsCustomerID, PreviousDate, Amount);
go

if object_id(N'dbo.InstallmentBalances', N'U') is null
create table dbo.InstallmentBalances (
    InsCustomerID varchar(101),
    Balance       decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.InstallmentBalances')
                 and name = N'InstallmentBalances_InsCustomerID')
create index InstallmentBalances_InsCustomerID on dbo.InstallmentBalances (InsCustomerID);
go

-- Money vouchers. The bodies are indexed so that an account's sums need the index alone.
if object_id(N'dbo.RecoveryHeader', N'U') is null
create table dbo.RecoveryHeader (
    VoucherID   int not null primary key,
    EntryDate   datetime2(0),
    isPosted    bit,
    VoucherDate date,
    AreaCode    varchar(40),
    AMStaffID   varchar(40),
    SAMStaffID  varchar(40),
    StaffID     varchar(40),
    UserNo      int
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryHeader')
                 and name = N'RecoveryHeader_VoucherDate')
create index RecoveryHeader_VoucherDate on dbo.RecoveryHeader (VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryHeader')
                 and name = N'RecoveryHeader_AreaCode')
create index RecoveryHeader_AreaCode on dbo.RecoveryHeader (AreaCode, VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryHeader')
                 and name = N'RecoveryHeader_AMStaffID')
create index RecoveryHeader_AMStaffID on dbo.RecoveryHeader (AMStaffID, VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryHeader')
                 and name = N'RecoveryHeader_SAMStaffID')
create index RecoveryHeader_SAMStaffID on dbo.RecoveryHeader (SAMStaffID, VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryHeader')
                 and name = N'RecoveryHeader_StaffID')
create index RecoveryHeader_StaffID on dbo.RecoveryHeader (StaffID);
go

if object_id(N'dbo.RecoveryBody', N'U') is null
create table dbo.RecoveryBody (
    VoucherID     int,
    VoucherDate   date,
    InsCustomerID varchar(101),
    CardNo        varchar(60),
    ReceiptNo     int,
    Amount        decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryBody')
                 and name = N'RecoveryBody_VoucherID')
create index RecoveryBody_VoucherID on dbo.RecoveryBody (VoucherID, ReceiptNo, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryBody')
                 and name = N'RecoveryBody_InsCustomerID')
create index RecoveryBody_InsCustomerID on dbo.RecoveryBody (InsCustomerID, VoucherDate, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.RecoveryBody')
                 and name = N'RecoveryBody_VoucherDate')
create index RecoveryBody_VoucherDate on dbo.RecoveryBody (VoucherDate);
go

if object_id(N'dbo.ConcessionHeader', N'U') is null
create table dbo.ConcessionHeader (
    VoucherID   int not null primary key,
    VoucherDate date,
    AreaCode    varchar(40)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConcessionHeader')
                 and name = N'ConcessionHeader_VoucherDate')
create index ConcessionHeader_VoucherDate on dbo.ConcessionHeader (VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConcessionHeader')
                 and name = N'ConcessionHeader_AreaCode')
create index ConcessionHeader_AreaCode on dbo.ConcessionHeader (AreaCode);
go

if object_id(N'dbo.ConcessionBody', N'U') is null
create table dbo.ConcessionBody (
    VoucherID     int,
    VoucherDate   date,
    InsCustomerID varchar(101),
    CardNo        varchar(60),
    Remarks       varchar(1000),
    Amount        decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConcessionBody')
                 and name = N'ConcessionBody_VoucherID')
create index ConcessionBody_VoucherID on dbo.ConcessionBody (VoucherID, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ConcessionBody')
                 and name = N'ConcessionBody_InsCustomerID')
create index ConcessionBody_InsCustomerID
    on dbo.ConcessionBody (InsCustomerID, VoucherDate, Amount);
go

if object_id(N'dbo.ReturnHeader', N'U') is null
create table dbo.ReturnHeader (
    VoucherID   int not null primary key,
    VoucherDate date,
    AreaCode    varchar(40)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnHeader')
                 and name = N'ReturnHeader_VoucherDate')
create index ReturnHeader_VoucherDate on dbo.ReturnHeader (VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnHeader')
                 and name = N'ReturnHeader_AreaCode')
create index ReturnHeader_AreaCode on dbo.ReturnHeader (AreaCode);
go

if object_id(N'dbo.ReturnBody', N'U') is null
create table dbo.ReturnBody (
    VoucherID     int,
    VoucherDate   date,
    InsCustomerID varchar(101),
    CardNo        varchar(60),
    Remarks       varchar(1000),
    TotalRecovery decimal(18,4),
    TotalAmount   decimal(18,4),
    Amount        decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnBody')
                 and name = N'ReturnBody_VoucherID')
create index ReturnBody_VoucherID on dbo.ReturnBody (VoucherID, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnBody')
                 and name = N'ReturnBody_InsCustomerID')
create index ReturnBody_InsCustomerID on dbo.ReturnBody (InsCustomerID, VoucherDate, Amount);
go

if object_id(N'dbo.ReturnProducts', N'U') is null
create table dbo.ReturnProducts (
    VoucherID     int,
    InsCustomerID varchar(101),
    ProductID     varchar(20),
    Qty           decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnProducts')
                 and name = N'ReturnProducts_VoucherID')
create index ReturnProducts_VoucherID on dbo.ReturnProducts (VoucherID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnProducts')
                 and name = N'ReturnProducts_InsCustomerID')
create index ReturnProducts_InsCustomerID on dbo.ReturnProducts (InsCustomerID);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.ReturnProducts')
                 and name = N'ReturnProducts_ProductID')
create index ReturnProducts_ProductID on dbo.ReturnProducts (ProductID);
go

-- Payroll
if object_id(N'dbo.Salaries', N'U') is null
create table dbo.Salaries (
    StaffID     varchar(40) not null,
    SalaryMonth date not null,
    BasicSalary decimal(18,4),
    SaleComm    decimal(18,4),
    SalePrize   decimal(18,4),
    OrderComm   decimal(18,4),
    OrderPrize  decimal(18,4),
    RecComm     decimal(18,4),
    RecPrize    decimal(18,4),
    SupplyComm  decimal(18,4),
    GPFund      decimal(18,4),
    KFFund      decimal(18,4),
    Recloan     decimal(18,4),
    Other       decimal(18,4),
    Advance     decimal(18,4),
    Less        decimal(18,4),
    primary key (StaffID, SalaryMonth)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.Salaries')
                 and name = N'Salaries_SalaryMonth')
create index Salaries_SalaryMonth on dbo.Salaries (SalaryMonth);
go

if object_id(N'dbo.FrenchiserSalaryHeader', N'U') is null
create table dbo.FrenchiserSalaryHeader (
    StaffID     varchar(40) not null,
    SalaryMonth date not null,
    BasicSalary decimal(18,4),
    GPFund      decimal(18,4),
    KFFund      decimal(18,4),
    Recloan     decimal(18,4),
    Other       decimal(18,4),
    Less        decimal(18,4),
    Advance     decimal(18,4),
    primary key (StaffID, SalaryMonth)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.FrenchiserSalaryHeader')
                 and name = N'FrenchiserSalaryHeader_SalaryMonth')
create index FrenchiserSalaryHeader_SalaryMonth on dbo.FrenchiserSalaryHeader (SalaryMonth);
go

if object_id(N'dbo.FrenchiserSalaryBody', N'U') is null
create table dbo.FrenchiserSalaryBody (
    StaffID     varchar(40),
    SalaryMonth date,
    ProductID   varchar(20),
    Type        varchar(100),
    Commision   decimal(18,4),
    Qty         decimal(18,4),
    Amount      decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.FrenchiserSalaryBody')
                 and name = N'FrenchiserSalaryBody_StaffID')
create index FrenchiserSalaryBody_StaffID
    on dbo.FrenchiserSalaryBody (StaffID, SalaryMonth, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.FrenchiserSalaryBody')
                 and name = N'FrenchiserSalaryBody_ProductID')
create index FrenchiserSalaryBody_ProductID on dbo.FrenchiserSalaryBody (ProductID);
go

if object_id(N'dbo.WorkShopSalaryHeader', N'U') is null
create table dbo.WorkShopSalaryHeader (
    StaffID     varchar(40) not null,
    SalaryMonth date not null,
    BasicSalary decimal(18,4),
    GPFund      decimal(18,4),
    KFFund      decimal(18,4),
    Recloan     decimal(18,4),
    Other       decimal(18,4),
    Less        decimal(18,4),
    Advance     decimal(18,4),
    primary key (StaffID, SalaryMonth)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopSalaryHeader')
                 and name = N'WorkShopSalaryHeader_SalaryMonth')
create index WorkShopSalaryHeader_SalaryMonth on dbo.WorkShopSalaryHeader (SalaryMonth);
go

if object_id(N'dbo.WorkShopSalaryBody', N'U') is null
create table dbo.WorkShopSalaryBody (
    StaffID     varchar(40),
    SalaryMonth date,
    PartID      int,
    Amount      decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopSalaryBody')
                 and name = N'WorkShopSalaryBody_StaffID')
create index WorkShopSalaryBody_StaffID on dbo.WorkShopSalaryBody (StaffID, SalaryMonth, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopSalaryBody')
                 and name = N'WorkShopSalaryBody_PartID')
create index WorkShopSalaryBody_PartID on dbo.WorkShopSalaryBody (PartID);
go

if object_id(N'dbo.SaleCommission', N'U') is null
create table dbo.SaleCommission (
    ProductID    varchar(20),
    Driver       decimal(18,4),
    AreaManager  decimal(18,4),
    SAreaManager decimal(18,4),
    Frenchiser   decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.SaleCommission')
                 and name = N'SaleCommission_ProductID')
create index SaleCommission_ProductID on dbo.SaleCommission (ProductID);
go

if object_id(N'dbo.OrderCommission', N'U') is null
create table dbo.OrderCommission (
    ProductID       varchar(20),
    DriverSmall     decimal(18,4),
    DriverLarge     decimal(18,4),
    AreaManager     decimal(18,4),
    SAreaManager    decimal(18,4),
    CheckingManager decimal(18,4),
    Frenchiser      decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.OrderCommission')
                 and name = N'OrderCommission_ProductID')
create index OrderCommission_ProductID on dbo.OrderCommission (ProductID);
go

if object_id(N'dbo.SalePrize', N'U') is null
create table dbo.SalePrize (
    GroupID int,
    Less    decimal(18,4),
    More    decimal(18,4),
    Driver  decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.SalePrize')
                 and name = N'SalePrize_GroupID')
create index SalePrize_GroupID on dbo.SalePrize (GroupID);
go

if object_id(N'dbo.OrderPrize', N'U') is null
create table dbo.OrderPrize (
    GroupID      int,
    Less         decimal(18,4),
    More         decimal(18,4),
    Driver       decimal(18,4),
    AreaManager  decimal(18,4),
    SAreaManager decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.OrderPrize')
                 and name = N'OrderPrize_GroupID')
create index OrderPrize_GroupID on dbo.OrderPrize (GroupID);
go

if object_id(N'dbo.RecoveryCommissionHeader', N'U') is null
create table dbo.RecoveryCommissionHeader (
    PerItem decimal(18,4)
);
go

if object_id(N'dbo.RecoveryCommission', N'U') is null
create table dbo.RecoveryCommission (
    Less         decimal(18,4),
    More         decimal(18,4),
    AreaManager  decimal(18,4),
    SAreaManager decimal(18,4)
);
go

if object_id(N'dbo.RecoveryPrize', N'U') is null
create table dbo.RecoveryPrize (
    Less         decimal(18,4),
    More         decimal(18,4),
    AreaManager  decimal(18,4),
    SAreaManager decimal(18,4)
);
go

if object_id(N'dbo.cheque', N'U') is null
create table dbo.cheque (
    ChequeDate date,
    staffid    varchar(40),
    amount     decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.cheque')
                 and name = N'cheque_staffid')
create index cheque_staffid on dbo.cheque (staffid, ChequeDate, amount);
go

-- Workshop
if object_id(N'dbo.WorkShopPartsHeader', N'U') is null
create table dbo.WorkShopPartsHeader (
    VoucherID   int not null primary key,
    VoucherDate date,
    StaffID     varchar(40),
    TotalAmount decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopPartsHeader')
                 and name = N'WorkShopPartsHeader_VoucherDate')
create index WorkShopPartsHeader_VoucherDate on dbo.WorkShopPartsHeader (VoucherDate);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopPartsHeader')
                 and name = N'WorkShopPartsHeader_StaffID')
create index WorkShopPartsHeader_StaffID on dbo.WorkShopPartsHeader (StaffID, VoucherDate);
go

if object_id(N'dbo.WorkShopPartsBody', N'U') is null
create table dbo.WorkShopPartsBody (
    VoucherID int,
    PartID    int,
    Rate      decimal(18,4),
    Qty       decimal(18,4),
    Amount    decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopPartsBody')
                 and name = N'WorkShopPartsBody_VoucherID')
create index WorkShopPartsBody_VoucherID on dbo.WorkShopPartsBody (VoucherID, PartID, Amount);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.WorkShopPartsBody')
                 and name = N'WorkShopPartsBody_PartID')
create index WorkShopPartsBody_PartID on dbo.WorkShopPartsBody (PartID);
go

-- Partnership
if object_id(N'dbo.PartnershipProfitHeader', N'U') is null
create table dbo.PartnershipProfitHeader (
    VoucherID int not null primary key,
    AreaCode  varchar(40),
    [Month]   date
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.PartnershipProfitHeader')
                 and name = N'PartnershipProfitHeader_AreaCode')
create index PartnershipProfitHeader_AreaCode on dbo.PartnershipProfitHeader (AreaCode);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.PartnershipProfitHeader')
                 and name = N'PartnershipProfitHeader_Month')
create index PartnershipProfitHeader_Month on dbo.PartnershipProfitHeader ([Month]);
go

if object_id(N'dbo.PartnershipProfitBody', N'U') is null
create table dbo.PartnershipProfitBody (
    VoucherID int,
    Income    decimal(18,4),
    Less      decimal(18,4),
    Expense   decimal(18,4)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.PartnershipProfitBody')
                 and name = N'PartnershipProfitBody_VoucherID')
create index PartnershipProfitBody_VoucherID on dbo.PartnershipProfitBody (VoucherID);
go

-- Work tables of the conversion of an account. The first has the columns of InsCustomerHeader
-- in their order, since rows go both ways with `select *`.
if object_id(N'dbo.Tempinscustomerheader', N'U') is null
create table dbo.Tempinscustomerheader (
    InsCustomerID      varchar(101),
    EntryDate          datetime2(0),
    isPosted           bit,
    [Order]            bit,
    Sale               bit,
    Old                bit,
    SmallVehicle       bit,
    LargeVehicle       bit,
    CardNo             varchar(60),
    AutoCard           varchar(20),
    Name               varchar(200),
    FName              varchar(200),
    [Cast]             varchar(200),
    DOB                date,
    AreaCode           varchar(40),
    SectorID           int,
    FStaffID           varchar(40),
    ReceivingCode      varchar(40),
    AMStaffID          varchar(40),
    SAMStaffID         varchar(40),
    CMStaffID          varchar(40),
    DriverID           varchar(40),
    NICNew             varchar(60),
    TAddress           varchar(500),
    PAddress           varchar(500),
    City               varchar(200),
    JobAddress         varchar(500),
    PreviousAccount    varchar(101),
    PhoneHouse         varchar(100),
    PhoneJob           varchar(100),
    Mobile             varchar(100),
    GName              varchar(200),
    GFName             varchar(200),
    GCast              varchar(200),
    GDOB               date,
    GNICNew            varchar(60),
    GPhoneNo           varchar(100),
    GPAddress          varchar(500),
    GCity              varchar(200),
    GJobAddress        varchar(500),
    SaleDate           date,
    ChangeDate         date,
    PromiseDate        int,
    MonthlyInstallment decimal(18,4),
    TotalAmount        decimal(18,4),
    UserNo             int,
    Product            varchar(4000)
);
go

if object_id(N'dbo.TempinscustomerBody', N'U') is null
create table dbo.TempinscustomerBody (
    serialno      int,
    InsCustomerID varchar(101),
    ProductID     varchar(20),
    Qty           decimal(18,4),
    Price         decimal(18,4),
    Amount        decimal(18,4),
    Colour        varchar(100),
    EngineNo      varchar(100),
    ChasisNo      varchar(100),
    VehicleNo     varchar(100)
);
go

if object_id(N'dbo.tempproduct', N'U') is null
create table dbo.tempproduct (
    InsCustomerID varchar(101)
);
go
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.tempproduct')
                 and name = N'tempproduct_InsCustomerID')
create index tempproduct_InsCustomerID on dbo.tempproduct (InsCustomerID);
go

-- Tables of the reference host

if object_id(N'dbo.UserRights', N'U') is null
create table dbo.UserRights (
    UserNo    int not null,
    ScreenKey varchar(200) not null,
    CanModify bit not null default 0,
    CanDelete bit not null default 0,
    primary key (UserNo, ScreenKey)
);
go
-- Names are unique among those who have one.
if not exists (select 1 from sys.indexes
               where object_id = object_id(N'dbo.Users')
                 and name = N'UsersByName')
create unique index UsersByName on dbo.Users (UserName) where UserName is not null;
go

if object_id(N'dbo.CompanyInfo', N'U') is null
create table dbo.CompanyInfo (
    NameUrdu varchar(400),
    LogoFile varchar(1000)
);
go

-- Views

-- What came in, went out, and was carried by gate passes. Old pieces and products that a customer
-- returns are not new stock. A condition on product and branch reaches each of the three parts,
-- and an index on the product serves it there.
create or alter view dbo.vuCurrentStock as
select p.ProductID, p.ProductName, m.BranchCode, cast(sum(m.Qty) as decimal(18,4)) as Stock
from dbo.Products p
join (
    select b.ProductID, h.BranchCode, isnull(b.Qty, 0) as Qty
    from dbo.StockInBody b
    join dbo.StockInHeader h on h.StockID = b.StockID
    union all
    select b.ProductID, h.BranchCode, -isnull(b.Qty, 0)
    from dbo.StockOutBody b
    join dbo.StockOutHeader h on h.StockID = b.StockID
    union all
    select b.ProductID, h.BranchCode,
           isnull(b.ReturnNewProducts, 0) - isnull(b.OutNewProducts, 0)
    from dbo.GatePassBody b
    join dbo.GatePassHeader h on h.GatePassID = b.GatePassID
) m on m.ProductID = p.ProductID
where m.BranchCode is not null
group by p.ProductID, p.ProductName, m.BranchCode;
go

create or alter view dbo.vuAccounts as
select AccountNo, AccountName from dbo.Accounts;
go

-- Functions

-- What is owing on an account; null where there is none.
create or alter function dbo.FunCurrentBalance (@InsCustomerID varchar(200))
returns decimal(18,4)
as
begin
    return (
        select isnull(h.TotalAmount, 0)
             - (select isnull(sum(Amount), 0) from dbo.PreviousBalances
                where InsCustomerID = h.InsCustomerID)
             - (select isnull(sum(Amount), 0) from dbo.RecoveryBody
                where InsCustomerID = h.InsCustomerID)
             - (select isnull(sum(Amount), 0) from dbo.ConcessionBody
                where InsCustomerID = h.InsCustomerID)
             - (select isnull(sum(Amount), 0) from dbo.ReturnBody
                where InsCustomerID = h.InsCustomerID)
        from dbo.InsCustomerHeader h
        where h.InsCustomerID = @InsCustomerID);
end
go

-- An account's products in the order of its lines: "name" for one piece, "name x2" for more.
create or alter function dbo.FunGetProduct (@InsCustomerID varchar(200))
returns varchar(4000)
as
begin
    declare @products varchar(max) = (
        select string_agg(
                   cast(p.ProductName as varchar(max))
                   + case when isnull(b.Qty, 1) = 1 then ''
                          else ' x' + cast(format(b.Qty, '0.####', 'en-US') as varchar(30)) end,
                   ', ') within group (order by b.serialno)
        from dbo.InsCustomerBody b
        join dbo.Products p on p.ProductID = b.ProductID
        where b.InsCustomerID = @InsCustomerID and p.ProductName is not null);
    return isnull(@products, '');
end
go

-- The account that holds a unit, by its engine or chassis number; of several the last. Null where
-- none does.
create or alter function dbo.FunGetCustomer (@Number varchar(200))
returns varchar(101)
as
begin
    if isnull(@Number, '') = ''
        return null;
    return (
        select top (1) found.InsCustomerID
        from (
            select serialno, InsCustomerID from dbo.InsCustomerBody where EngineNo = @Number
            union all
            select serialno, InsCustomerID from dbo.InsCustomerBody where ChasisNo = @Number
        ) found
        order by found.serialno desc);
end
go

-- What was lent to a person less what was taken back; null where nothing was lent.
create or alter function dbo.FunCurrentAdvance (@StaffID varchar(200))
returns decimal(18,4)
as
begin
    declare @lent decimal(38,4) = (
        select sum(Amount) from dbo.StaffAdvance where StaffID = @StaffID);
    return @lent
         - (select isnull(sum(Recloan), 0) from dbo.Salaries where StaffID = @StaffID)
         - (select isnull(sum(Recloan), 0) from dbo.FrenchiserSalaryHeader
            where StaffID = @StaffID)
         - (select isnull(sum(Recloan), 0) from dbo.WorkShopSalaryHeader
            where StaffID = @StaffID);
end
go

-- Procedures. Each fills InstallmentBalances anew, all or not at all, within a transaction of the
-- caller or in one of its own.

-- A row for each account on the recovery vouchers of a day, with its balance at that day.
create or alter procedure dbo.SPInstallmentBalances
    @VoucherDate date
as
begin
    set nocount on;
    declare @outer int = @@trancount;
    begin try
        if @outer = 0
            begin transaction;
        else
            save transaction Balances;
        delete from dbo.InstallmentBalances;
        insert into dbo.InstallmentBalances (InsCustomerID, Balance)
        select a.InsCustomerID,
               isnull(h.TotalAmount, 0)
             - (select isnull(sum(Amount), 0) from dbo.PreviousBalances
                where InsCustomerID = a.InsCustomerID and PreviousDate <= @VoucherDate)
             - (select isnull(sum(Amount), 0) from dbo.RecoveryBody
                where InsCustomerID = a.InsCustomerID and VoucherDate <= @VoucherDate)
             - (select isnull(sum(Amount), 0) from dbo.ConcessionBody
                where InsCustomerID = a.InsCustomerID and VoucherDate <= @VoucherDate)
             - (select isnull(sum(Amount), 0) from dbo.ReturnBody
                where InsCustomerID = a.InsCustomerID and VoucherDate <= @VoucherDate)
        from (
            select distinct b.InsCustomerID
            from dbo.RecoveryHeader r
            join dbo.RecoveryBody b on b.VoucherID = r.VoucherID
            where r.VoucherDate = @VoucherDate and b.InsCustomerID is not null
        ) a
        left join dbo.InsCustomerHeader h on h.InsCustomerID = a.InsCustomerID;
        if @outer = 0
            commit transaction;
    end try
    begin catch
        if @outer = 0 and @@trancount > 0
            rollback transaction;
        else if xact_state() = 1
            rollback transaction Balances;
        throw;
    end catch
end
go

-- A row for each account of an area that was due for collection when the month began, with its
-- balance then.
create or alter procedure dbo.spRecoveryPrize
    @AreaCode varchar(200),
    @SalaryMonth date
as
begin
    set nocount on;
    declare @first date = datefromparts(year(@SalaryMonth), month(@SalaryMonth), 1);
    declare @outer int = @@trancount;
    begin try
        if @outer = 0
            begin transaction;
        else
            save transaction Balances;
        delete from dbo.InstallmentBalances;
        insert into dbo.InstallmentBalances (InsCustomerID, Balance)
        select a.InsCustomerID,
               isnull(a.TotalAmount, 0)
             - (select isnull(sum(Amount), 0) from dbo.PreviousBalances
                where InsCustomerID = a.InsCustomerID and PreviousDate < @first)
             - (select isnull(sum(Amount), 0) from dbo.RecoveryBody
                where InsCustomerID = a.InsCustomerID and VoucherDate < @first)
             - (select isnull(sum(Amount), 0) from dbo.ConcessionBody
                where InsCustomerID = a.InsCustomerID and VoucherDate < @first)
             - (select isnull(sum(Amount), 0) from dbo.ReturnBody
                where InsCustomerID = a.InsCustomerID and VoucherDate < @first)
        from dbo.InsCustomerHeader a
        where a.AreaCode = @AreaCode and a.SaleDate < @first
          and (a.ChangeDate is null or a.ChangeDate < @first);
        if @outer = 0
            commit transaction;
    end try
    begin catch
        if @outer = 0 and @@trancount > 0
            rollback transaction;
        else if xact_state() = 1
            rollback transaction Balances;
        throw;
    end catch
end
go

-- Last, so that a script that broke off is not taken for a company.
delete from dbo.SchemaVersion where Version < 2;
insert into dbo.SchemaVersion (Version)
select 2 where not exists (select 1 from dbo.SchemaVersion);
go
set noexec off;
go
