-- The statements of the screens that are not built yet, with values in their places, one a line.
-- Those of the others are gathered from their sources: see tests/support/LibraryStatements.h. A
-- statement leaves this file when its screen is built.

-- Questions

Select isnull(max(cast(Autocard as int)),0) + 1  from InsCustomerHeader Where old=0 and AreaCode = 'Kot'
select count(*) as total from InstallmentBalances where balance<>0
Select isnull(max(VoucherID),0) from RecoveryHeader
Select isnull(max(VoucherID),0) from ConcessionHeader
Select isnull(max(VoucherID),0) from ReturnHeader
Select isnull(max(VoucherID),0) from WorkShopPartsHeader
Select Name from Staff where StaffID='Kot' and Frenchiser=1
Select Name FROM Staff where StaffID='Kot' and Machenic=0
Select SectorName from Sectors where SectorID = 1
Select ProductName,InstallmentRate FROM Products where ProductID='Kot'
Select AreaName,AMStaffID,SAMStaffID,st.Name as AMName,sta.Name SAMName FROM Areas inner join Staff st on Areas.AMStaffID=St.StaffID inner join Staff sta on Areas.SAMStaffID=Sta.StaffID where AreaCode = 'Kot'
Select AreaName From Areas where AreaCode = 'Kot' and BranchCode=1
Select AreaName From Areas where AreaCode='Kot'
Select * from Staff where StaffID='Kot' and FieldWorker=1
SELECT * from Parts where partid=1
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Name like '%محمد%' and FieldWorker=1
Select cardno from InsCustomerHeader Where old=1 and CardNo = '1'
Select areas.*, st.Name as AMName,sta.Name SAMName FROM Areas inner join Staff st on Areas.AMStaffID=St.StaffID inner join Staff sta on Areas.SAMStaffID=Sta.StaffID where AreaCode='Kot'
Select SectorName  from Sectors where SectorID = 1
Select Name From Staff where StaffID = 'Kot'
Select Name from Staff where StaffID='Kot' and Fieldworker=1
Select Name from Staff where StaffID='Kot' and FieldWorker=1
Select Name FROM Staff where FieldWorker=1 and StaffID='Kot'
 select InsC.*, ar.AreaName, r.Name as ReceivingName, f.name as Frenchiser, am.Name as AMName, sam.Name as SAMName, dn.Name as DriverName, cm.name as CMName, SectorName FROM InsCustomerHeader InsC join Areas ar on InsC.AreaCode=ar.AreaCode join Staff am on InsC.AMStaffID=am.StaffID join Staff sam on InsC.SAMStaffID=sam.StaffID left outer join Sectors st on st.SectorID = InsC.SectorID left outer join Staff cm on InsC.cmStaffID=cm.StaffID left outer join Staff dn on InsC.DriverID=dn.StaffID left outer join Staff f on InsC.FStaffID=f.StaffID left outer join Staff r on InsC.ReceivingCode=r.StaffID Where InsC.InsCustomerID = 'Kot 1'
select isposted from InsCustomerHeader where InsCustomerID ='Kot 1'
Select * from InsCustomerHeader where InsCustomerID ='Kot 1'
select * from InsCustomerHeader where InsCustomerID='Kot 1'
Select * from InsCustomerBody where InsCustomerID='Kot 1'
Select ProductName,InstallmentRate FROM Products where ProductID='101'
select pr.Productname,pb.* from InsCustomerBody pb join Products pr on pb.Productid=pr.Productid where insCustomerID='Kot 1'
select dbo.FunGetCustomer('Kot') as InsCustomerID
SELECT InsCustomerID,CardNo,Name,FName,City, SaleDate from InsCustomerHeader WHERE CardNo = '1' and AreaCode='Kot'
select totalamount from inscustomerheader where inscustomerid='Kot 1'
SELECT isnull(dbo.FunCurrentBalance('Kot 1'),0)
select max(voucherdate) from RecoveryBody where InsCustomerID='Kot 1'
select * from InsCustomerHeader where InsCustomerID = 'Kot 1'
select * from ConvertArea where FromInsCustomerID='Kot 1'
select * from inscustomerheader where InsCustomerID='Kot 1'
 select left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) as PrevAreaCode , right(frominscustomerid,len(frominscustomerid)-PATINDEX('% %',frominscustomerid)) as PrevCardNo , Name, c.TotalAmount as Total, FromAmount as Previous , left(Toinscustomerid,PATINDEX('% %',Toinscustomerid)-1) as NewAreaCode , right(Toinscustomerid,len(Toinscustomerid)-PATINDEX('% %',Toinscustomerid)) as NewCardNo , ToAmount as Remain, ToDate from convertArea c  inner join inscustomerheader h on c.frominscustomerid = h.inscustomerid where left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) = 'Kot' and right(frominscustomerid,len(frominscustomerid)-PATINDEX('% %',frominscustomerid)) = '1'
SELECT InsCustomerID,CardNo,Name,FName,City, MonthlyInstallment, dbo.FunCurrentBalance(insCustomerID) as Balance from InsCustomerHeader WHERE CardNo = '1' and AreaCode='Kot'
 Select AreaName,AMStaffID,SAMStaffID,st.Name as AMName,sta.Name SAMName FROM Areas inner join Staff st on Areas.AMStaffID=St.StaffID inner join Staff sta on Areas.SAMStaffID=Sta.StaffID where AreaCode = 'Kot'
Select * from Staff where StaffID='2014' and Machenic=0
 Select  rh.*,ar.AreaName,AM.Name as AMName,SAM.Name as SAMName,w.Name as StaffName from RecoveryHeader rh join Areas ar on rh.AreaCode=ar.AreaCode left outer join Staff AM on rh.AMStaffID=AM.StaffID left outer join Staff SAM on rh.SAMStaffID=SAM.StaffID left outer join Staff w on rh.StaffID=w.StaffID where VoucherID=1
 Select * from RecoveryBody where VoucherID=1
 select InsC.Name, InsC.FName, InsC.City, rb.* from RecoveryBody rb join InsCustomerHeader InsC on rb.InsCustomerID = InsC.InsCustomerID where VoucherID=1
select * from recoverybody where month(voucherdate) = 1 and year(voucherdate)=2026 and inscustomerid ='Kot 1'
select isposted from RecoveryHeader where VoucherID = 1
Select * from RecoveryHeader where VoucherID = 1
select * from RecoveryHeader where VoucherID=1
SELECT InsCustomerID,CardNo,Name,FName,City, dbo.FunCurrentBalance(insCustomerID) as Balance from InsCustomerHeader WHERE CardNo = '1' and AreaCode='Kot'
Select  rh.*,ar.AreaName from ConcessionHeader rh join Areas ar on rh.AreaCode=ar.AreaCode where VoucherID=1
Select * from ConcessionBody where VoucherID=1
select InsC.Name, InsC.FName, InsC.City, rb.* from ConcessionBody rb join InsCustomerHeader InsC on rb.InsCustomerID = InsC.InsCustomerID where VoucherID=1
Select * from ConcessionHeader where VoucherID = 1
select * from ConcessionHeader where VoucherID=1
SELECT InsCustomerID,CardNo,Name,FName,City, TotalAmount,dbo.FunCurrentBalance(insCustomerID) as Balance from InsCustomerHeader WHERE CardNo = '1' and AreaCode='Kot'
SELECT p.ProductID, ProductName, Qty from InsCustomerBody b inner join Products p on b.ProductID = p.ProductID WHERE InsCustomerID = 'Kot 1'
Select  rh.*,ar.AreaName from ReturnHeader rh join Areas ar on rh.AreaCode=ar.AreaCode where VoucherID=1
Select * from ReturnBody where VoucherID=1
select InsC.Name, InsC.FName, InsC.City, rb.* from ReturnBody rb join InsCustomerHeader InsC on rb.InsCustomerID = InsC.InsCustomerID where VoucherID=1
Select * from ReturnProducts where VoucherID=1
SELECT p.ProductID, ProductName, Qty, Price from InsCustomerBody b inner join Products p on b.ProductID = p.ProductID WHERE InsCustomerID = 'Kot 1' and b.ProductID = 1
select productName from products where productid = 1
Select * from ReturnHeader where VoucherID = 1
select * from ReturnHeader where VoucherID=1
select * from Salaries where staffid='2014' and SalaryMonth='2026-01-05'
select isnull(dbo.FunCurrentAdvance('2014'),0)
select isnull(dateadd(d,-1,dateadd(m,1,max(SalaryMonth))),'01/01/2006')max from Salaries where staffid='2014'
select isnull(dateadd(d,-1,dateadd(m,1,max(SalaryMonth))),'01/01/2006')max from WorkShopSalaryHeader where staffid='2014'
select isnull(sum(amount),0)amount from cheque where ChequeDate between '2026-01-05' and '2026-01-05' and staffid='2014'
select isnull(sum(BasicSalary-advance-less+RecComm+RecPrize+SaleComm+SalePrize+OrderComm+OrderPrize+SupplyComm+Other-Recloan-GPFund-KFFund),0) advance from Salaries where BasicSalary-advance-less+RecComm+RecPrize+SaleComm+SalePrize+OrderComm+OrderPrize+SupplyComm+Other-Recloan-GPFund-KFFund < 0 and month(SalaryMonth) = 1 and year(SalaryMonth)= 2026 and staffid ='2014'
select 'advance' = case when BasicSalary-advance-less+Other-Recloan-GPFund-KFFund+isnull(total,0)< 0 then BasicSalary-advance-less+Other-Recloan-GPFund-KFFund+isnull(total,0) else 0 end from WorkShopSalaryHeader h left outer join (select staffid, salarymonth, sum(amount) as total from WorkShopSalaryBody group by staffid,salarymonth)b on b.staffid = h.staffid and b.salarymonth = h.salarymonth where month(h.SalaryMonth) = 1 and year(h.SalaryMonth)= 2026 and h.staffid ='2014'
Select * FROM Salaries where salarymonth='2026-01-05' and staffid='2014'
 Select s.*, f.name, f.fname, Address, designation from salaries s inner join staff f on s.StaffID = f.StaffID where s.StaffID='2014' and SalaryMonth='2026-01-05'
select * from InsCustomerHeader where AMStaffID='2014' and  year(SaleDate)=2026 and  month(SaleDate)=1
select * from SaleCommission where ProductID='101'
 select productid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where sale = 1  and driverid ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by ProductID
select * from OrderCommission where ProductID='101'
select * from InsCustomerHeader where (DriverID='2014' or AMStaffID='2014' or SAMStaffID='2014') and  year(SaleDate)=2026 and  month(SaleDate)=1
 select Groupid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  inner join products p on p.productid = b.productid  where sale = 1 and (DriverID='2014' or AMStaffID='2014' or SAMStaffID='2014') and month(saledate) = 1  and year(saledate) = 2026 Group by Groupid
select * from SalePrize where Groupid=1
select * from OrderPrize where Groupid=1
select * from OrderPrize where GroupID=1
select * from GatePassHeader h inner join GatePassBody b on h.GatePassID = b.GatePassID where DriverCode='2014' and Supply=1 and year(GatePassDate)=2026 and  month(GatePassDate)=1
 select sum(OutNewProducts) as qty from GatePassHeader h   inner join GatePassBody b on h.GatePassID = b.GatePassID  where DriverCode='2014' and Supply = 1 and year(GatePassDate)=2026 and month(GatePassDate)=1 
select PerItem from RecoveryCommissionHeader
select AreaCode from RecoveryHeader where AMStaffID='2014' and month(VoucherDate)=1 and year(VoucherDate) = 2026
select count(distinct inscustomerid) from RecoveryBody b inner join RecoveryHeader h on h.VoucherID = b.VoucherID where areacode='Kot' and month(h.voucherDate)=1 and year(h.voucherDate)=2026
select count(distinct r.inscustomerid) from InsCustomerHeader h inner join RecoveryBody r on r.InscustomerId = h.inscustomerid  where areacode='Kot' and month(SaleDate)=1 and year(SaleDate)=2026 and old = 0
select * from RecoveryHeader h inner join RecoveryBody b on h.VoucherID = b.VoucherID where AMStaffID='2014' and year(b.VoucherDate)=2026 and  month(b.VoucherDate)=1
 select sum(amount) as total from RecoveryHeader h   inner join RecoveryBody b on h.VoucherID = b.VoucherID  where AMStaffID='2014' and year(h.VoucherDate)=2026 and month(h.VoucherDate)=1 
select * from RecoveryCommission
 select * from RecoveryCommission
 select * from RecoveryPrize
 select d.ProductID, ProductName, Type, Qty, Commision, Qty*Commision as Amount from  (select b.ProductID, 'i”iC' as Type, sum(Qty) as Qty, avg(Frenchiser) as Commision from InsCustomerHeader h inner join InsCustomerbody b on h.InsCustomerID = b.InsCustomerID inner join OrderCommission o on o.ProductID = b.ProductID where [Order] = 1 and FStaffID = '2014' and month(saledate)=1 and year(saledate)=2026 Group By b.ProductID union all  select b.ProductID, '¼Ïp' as Type, sum(Qty) as Qty, avg(Frenchiser) as Commision from InsCustomerHeader h inner join InsCustomerbody b on h.InsCustomerID = b.InsCustomerID inner join SaleCommission s on s.ProductID = b.ProductID where Sale = 1 and FStaffID = '2014' and month(saledate)=1 and year(saledate)=2026 Group By b.ProductID)d inner join Products p on d.ProductID = p.ProductID
select isnull(dateadd(d,-1,dateadd(m,1,max(SalaryMonth))),'01/01/2006')max from FrenchiserSalaryHeader where staffid='2014'
select 'advance' = case when BasicSalary-advance-less+Other-Recloan-GPFund-KFFund+isnull(total,0)< 0 then BasicSalary-advance-less+Other-Recloan-GPFund-KFFund+isnull(total,0) else 0 end from FrenchiserSalaryHeader h left outer join (select staffid, salarymonth, sum(amount) as total from FrenchiserSalaryBody group by staffid,salarymonth)b on b.staffid = h.staffid and b.salarymonth = h.salarymonth where month(h.SalaryMonth) = 1 and year(h.SalaryMonth)= 2026 and h.staffid ='2014'
Select * from Staff where StaffID='2014' and Frenchiser=1
Select * FROM FrenchiserSalaryHeader where salarymonth='2026-01-05' and staffid='2014'
select * from FrenchiserSalaryBody
Select s.*, f.name, f.fname, Address, designation from FrenchiserSalaryHeader s inner join staff f on s.StaffID = f.StaffID where s.StaffID='2014' and SalaryMonth='2026-01-05'
 select * from FrenchiserSalaryBody b  inner join Products p on p.ProductID = b.ProductID  where staffid ='2014' and month(SalaryMonth)='1' and year(SalaryMonth)='2026'
Select  h.*, Name, FName, Designation  from WorkShopPartsHeader h join Staff s on h.StaffID=s.StaffID where VoucherID=1
Select * from WorkShopPartsBody where VoucherID=1
select P.PartName, b.* from WorkShopPartsBody b join Parts p on b.PartID = p.PartID where VoucherID=1
Select * from WorkShopPartsHeader where VoucherID = 1
select * from WorkShopPartsHeader where VoucherID=1
Select * from Staff where StaffID='2014' and Machenic=1
select staffid, b.partid, PartName, sum(Amount) as amount from WorkShopPartsHeader h inner join WorkShopPartsBody b on h.VoucherID = b.VoucherID inner join parts p on p.partid = b.partid  where staffid ='2014' and month(VoucherDate)='1' and year(VoucherDate)='2026' group by staffid, b.partid, Partname
Select * FROM WorkShopSalaryHeader where salarymonth='2026-01-05' and staffid='2014'
select * from WorkShopSalaryBody
Select s.*, f.name, f.fname, Address, designation from WorkShopSalaryHeader s inner join staff f on s.StaffID = f.StaffID where s.StaffID='2014' and SalaryMonth='2026-01-05'
select * from WorkShopSalarybODY b  inner join parts p on p.partid = b.partid  where staffid ='2014' and month(SalaryMonth)='1' and year(SalaryMonth)='2026'
 select h.*, isnull(amount,0)amount, partname, Name as StaffName, Address, Fname, Designation from WorkShopSalaryHeader h  left outer join WorkShopSalaryBody b on b.staffid = h.staffid and h.SalaryMonth = b.SalaryMonth left outer join parts p on p.partid = b.partid  inner join staff s on s.staffid = h.staffid where h.StaffID='2014' and h.SalaryMonth = '2026-01-05' 
 select Productid,sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where [order] = 1 and LargeVehicle=1 and  driverid ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Productid
 select Groupid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  inner join products p on p.productid = b.productid  where [order] = 1 and SAMStaffID='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Groupid
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Frenchiser=1
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Name like '%محمد%' and Frenchiser=1
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and FieldWorker=1
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Machenic=0
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Name like '%محمد%' and Machenic=0
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Machenic=1
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Name like '%محمد%' and Machenic=1
select * from InsCustomerHeader where DriverID='2014' and  year(SaleDate)=2026 and  month(SaleDate)=1
select * from InsCustomerHeader where SAMStaffID='2014' and  year(SaleDate)=2026 and  month(SaleDate)=1
select * from InsCustomerHeader where CMStaffID='2014' and  year(SaleDate)=2026 and  month(SaleDate)=1
 select Productid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where sale = 1 and AMStaffID ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Productid
 select Productid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where sale = 1 and SAMStaffID='2014' and month(saledate) = 1  and year(saledate) = 2026 Group by Productid
 select Productid,sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where [order] = 1 and SmallVehicle=1 and driverid ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by ProductId
 select Productid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where [order] = 1 and AMStaffID ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by ProductID
 select Productid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where [order] = 1 and SAMStaffID='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Productid
 select Productid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where [order] = 1 and CMStaffID='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Productid
 select GroupID, sum(qty) as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  inner join products p on p.productid = b.productid  where [order] = 1 and driverid ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by GroupID
 select GroupID, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  inner join products p on p.productid = b.productid  where [order] = 1 and AMStaffID ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Groupid
select * from OrderCommission where productid='101'
select AreaCode from RecoveryHeader where SAMStaffID='2014' and month(VoucherDate)=1 and year(VoucherDate) = 2026
select * from RecoveryHeader h inner join RecoveryBody b on h.VoucherID = b.VoucherID where SAMStaffID='2014' and year(b.VoucherDate)=2026 and  month(b.VoucherDate)=1
 select sum(amount) as total from RecoveryHeader h   inner join RecoveryBody b on h.VoucherID = b.VoucherID  where SAMStaffID='2014' and year(h.VoucherDate)=2026 and month(h.VoucherDate)=1 
select count(distinct inscustomerid) from RecoveryBody b inner join RecoveryHeader h on h.VoucherID = b.VoucherID where areacode='Kot' and month(b.voucherDate)=1 and year(b.voucherDate)=2026
 select InsC.Name, InsC.FName, InsC.City, rb.* from RecoveryBody rb join InsCustomerHeader InsC on rb.InsCustomerID = InsC.InsCustomerID where VoucherID=1 order by ReceiptNo
 select InsC.Name, InsC.FName, InsC.City, rb.* from RecoveryBody rb join InsCustomerHeader InsC on rb.InsCustomerID = InsC.InsCustomerID where VoucherID=1 and rb.InsCustomerID='Kot 1' order by ReceiptNo

-- Procedures

exec spRecoveryPrize 'Kot','2026-01-05'

-- Changes

insert into Tempinscustomerheader SELECT * FROM inscustomerheader WHERE Areacode = 'Kot ' and cardno = '1'
Update Tempinscustomerheader set InsCustomerID='Raja 9', AreaCode='Raja', CardNo='9', PreviousAccount='1 Kot', Sale=0, Old=1, [Order]=0, ChangeDate='2026-01-05'
insert into inscustomerheader SELECT *  FROM Tempinscustomerheader
insert into TempinscustomerBody (serialno, inscustomerid,Productid,Qty,Price,Amount,Colour,EngineNo,ChasisNo,VehicleNo) select serialno, inscustomerid,Productid,QTy,Price,Amount,Colour,EngineNo,ChasisNo,VehicleNo  from InsCustomerBody where inscustomerid='Kot 1'
Insert into inscustomerBody (inscustomerid,Productid,Qty,Price,Amount, Colour,EngineNo,ChasisNo,VehicleNo) SELECT inscustomerid,Productid,QTy,Price,Amount,Colour,EngineNo,ChasisNo,VehicleNo FROM TempinscustomerBody
Insert into ConvertArea (FromInsCustomerID, FromAmount, TotalAmount, ToInsCustomerID, ToAmount, ToDate) values ('Kot 1',1,1,'Kot 1',1,'2026-01-05')
Insert into PreviousBalances (InsCustomerID, PreviousDate, Amount, Previous, ConvertAccount) values ('Kot 1','2026-01-05',1,0,1)
update InsCustomerHeader set Product = dbo.FunGetProduct('Kot 1') where InsCustomerID = 'Kot 1'
Update inscustomerheader set PreviousAccount = '1 Kot'  where InsCustomerID='Kot 1'
Update TempinscustomerBody set InsCustomerID='Kot 1'
Update inscustomerheader set PreviousAccount = '' where InsCustomerID='Kot 1'
Delete from InsCustomerBody where InscustomerID ='Kot 1'
Delete from InsCustomerHeader where InsCustomerID ='Kot 1'
Delete from tempproduct where inscustomerid='Kot 1'
delete from Tempinscustomerheader
delete from TempinscustomerBody
Delete from inscustomerBody where inscustomerid = 'Kot 1'
Delete from inscustomerheader WHERE Areacode = 'Kot ' and CardNo = '1'
Delete from ConvertArea where FromInsCustomerID = 'Kot 1' and ToInsCustomerID ='Kot 1'
Delete from PreviousBalances where InsCustomerID = 'Kot 1' and ConvertAccount=1
Delete from RecoveryBody where VoucherID = 1
Delete from RecoveryHeader where VoucherID = 1
Delete from ConcessionBody where VoucherID = 1
Delete from ConcessionHeader where VoucherID = 1
Delete from ReturnProducts where VoucherID = 1
Delete from ReturnBody where VoucherID = 1
Delete from ReturnHeader where VoucherID = 1
Delete from Salaries where staffid='2014' and SalaryMonth='2026-01-05'
delete from FrenchiserSalaryBody where staffid='2014' and SalaryMonth='2026-01-05'
delete from FrenchiserSalaryHeader where staffid='2014' and SalaryMonth='2026-01-05'
Delete from WorkShopPartsBody where VoucherID = 1
Delete from WorkShopPartsHeader where VoucherID = 1
delete from WorkShopSalaryBody where staffid='2014' and SalaryMonth='2026-01-05'
delete from WorkShopSalaryHeader where staffid='2014' and SalaryMonth='2026-01-05'
