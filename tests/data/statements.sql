-- The statements of the forms, dialogs and reports, with values in their places, one a line.

-- Questions

Select isnull(max(cast(Autocard as int)),0) + 1  from InsCustomerHeader Where old=0 and AreaCode = 'Kot'
SELECT * from vuCurrentStock WHERE ProductID='101' and branchcode =1
SELECT ProductID, ProductName, Sum(Stock) as Stock FROM VuCurrentStock where 1=1 Group By ProductID, ProductName
select count(*) as total from InstallmentBalances where balance<>0
select isposted from GatePassHeader where GatePassID = 1
Select * from Users where UserNo = 1 and FromDate is not null
Select isnull(max(GatePassID),0) from GatePassHeader
Select isnull(max(VoucherID),0) from RecoveryHeader
Select isnull(max(VoucherID),0) from ConcessionHeader
Select isnull(max(VoucherID),0) from ReturnHeader
Select isnull(max(VoucherID),0) from WorkShopPartsHeader
Select isnull(max(StockID),0)+1 from StockInHeader
Select isnull(max(StockID),0)+1 from StockOutHeader
Select isnull(max(StockID),0)+1 from StockInDetailHeader
Select * from GatePassBody where GatePassID=1
Select * from GatePassHeader where GatePassID = 1
select * from GatePassHeader where GatePassID=1
 Select * FROM Branches where BranchCode = 1 and BranchCode=1
Select * FROM Areas  where AreaCode='Kot' and BranchCode=1
Select Name From Staff where FieldWorker=1 and StaffID='Kot'
Select Name From Staff where StaffID='Kot'
Select Name from Staff where StaffID='Kot' and Frenchiser=1
Select Name FROM Staff where StaffID='Kot' and Machenic=0
Select SectorName from Sectors where SectorID = 1
Select ProductName,InstallmentRate FROM Products where ProductID='Kot'
Select AreaName,AMStaffID,SAMStaffID,st.Name as AMName,sta.Name SAMName FROM Areas inner join Staff st on Areas.AMStaffID=St.StaffID inner join Staff sta on Areas.SAMStaffID=Sta.StaffID where AreaCode = 'Kot'
Select AreaName From Areas where AreaCode = 'Kot' and BranchCode=1
Select AreaName From Areas where AreaCode='Kot'
Select * from Staff where StaffID='Kot' and FieldWorker=1
SELECT * from Parts where partid=1
SELECT ProductName, PurchaseRate from Products WHERE ProductID = 'Kot'
 Select * FROM Branches where BranchCode = 1
select dbo.FunCurrentBalance('Kot 1')
select dbo.FunGetProduct('Kot 1')
SELECT * FROM Areas where 1=1  and BranchCode=1
SELECT * FROM Branches where 1=1  and BranchCode=1
SELECT ProductID, ProductName, Sum(Stock) as Stock FROM  VuCurrentStock where 1=1  AND ProductName Like '%سائیکل%' Group By ProductID, ProductName
SELECT s.*,branchname as branch FROM Staff s inner join branches b on b.branchcode=s.branchcode  where 1=1 and Name like '%محمد%' and FieldWorker=1
SELECT * FROM vuAccounts
SELECT * FROM Parts
SELECT * FROM Parties
SELECT * FROM Sectors
SELECT AreaCode, InsCustomerID, CardNo, Name, FName, PAddress FROM InsCustomerHeader where 1=1  and AreaCode = 'Kot' and Name like '%محمد%' and FName like '%محمد%'
Select GatePassHeader.GatePassID, GatePassDate, d.Name as DriverName, r.Name as Receiving, GatePassBody.outnew, GatePassBody.returnold, GatePassBody.returnnew, AreaCode from GatePassHeader join (SELECT GatePassID, sum(OutNewProducts) as outnew, sum(ReturnOldProducts) as returnold, sum(ReturnNewProducts) as returnnew FROM GatePassBody GROUP BY GatePassID) GatePassBody on GatePassHeader.GatePassID=GatePassBody.GatePassID left outer join staff d on GatePassHeader.DriverCode = d.StaffID left outer join staff r on GatePassHeader.ReceivingCode = r.StaffID WHERE GatePassDate Between '2026-01-05' AND '2026-01-05' and r.Name like '%x%' and areacode='Kot' and d.Name like '%x%' ORDER By GatePassDate, GatePassHeader.GatePassID
 SELECT InsCustomerHeader.InsCustomerID,InsCustomerHeader.CardNo, SaleDate, InsCustomerHeader.Name, InsCustomerHeader.FName ,InsCustomerHeader.TotalAmount,PromiseDate, isnull(TotalItems,0) as TotalItems, Areas.AreaName,InsCustomerHeader.AreaCode, r.Name as Receiving, f.Name as Frenchiser FROM InsCustomerHeader Left Outer Join (SELECT InsCustomerBody.InsCustomerID, sum(qty) as TotalItems FROM InsCustomerBody GROUP BY InsCustomerBody.InsCustomerID) InsCustomerBody ON InsCustomerHeader.InsCustomerID = InsCustomerBody.InsCustomerID INNER JOIN Areas ON InsCustomerHeader.AreaCode = Areas.AreaCode left outer JOIN Staff f ON InsCustomerHeader.FStaffID = f.StaffID left outer JOIN Staff r ON InsCustomerHeader.ReceivingCode = r.StaffID WHERE SaleDate Between '2026-01-05' AND '2026-01-05' AND InsCustomerHeader.Name like '%x%' AND f.Name like '%x%' AND r.Name like '%x%' order by InsCustomerHeader.CardNo
Select RecoveryHeader.VoucherID, RecoveryHeader.AreaCode, VoucherDate,Recoverybody.TotalAmount, Staff.Name as Staff ,Areas.AreaName from RecoveryHeader join (SELECT VoucherID, sum(amount) as TotalAmount FROM RecoveryBody GROUP BY VoucherID) RecoveryBody on RecoveryHeader.VoucherID=RecoveryBody.VoucherID join Areas on RecoveryHeader.AreaCode=Areas.AreaCode left outer join Staff on RecoveryHeader.StaffID = Staff.StaffID WHERE VoucherDate Between '2026-01-05' AND '2026-01-05' AND RecoveryHeader.AreaCode ='Kot' and name like '%x%' order by VoucherDate, RecoveryHeader.VoucherID
Select RecoveryHeader.VoucherID, RecoveryHeader.AreaCode, RecoveryHeader.VoucherDate ,Areas.AreaName, Amount, ReceiptNo, RecoveryBody.CardNo, RecoveryBody.InsCustomerID, InsCustomerHeader.Name from RecoveryHeader join RecoveryBody on RecoveryHeader.VoucherID=RecoveryBody.VoucherID join Areas on RecoveryHeader.AreaCode=Areas.AreaCode join InsCustomerHeader on InsCustomerHeader.InsCustomerID=RecoveryBody.InsCustomerID WHERE RecoveryHeader.VoucherDate Between '2026-01-05' AND '2026-01-05' AND RecoveryHeader.AreaCode = 'Kot' AND RecoveryHeader.voucherID = 1 AND InsCustomerHeader.Name like '%x%' Order By RecoveryHeader.VoucherID
Select ConcessionHeader.VoucherID, ConcessionHeader.AreaCode, VoucherDate,Concessionbody.TotalAmount ,Areas.AreaName from ConcessionHeader join (SELECT VoucherID, sum(amount) as TotalAmount FROM ConcessionBody GROUP BY VoucherID) ConcessionBody on ConcessionHeader.VoucherID=ConcessionBody.VoucherID join Areas on ConcessionHeader.AreaCode=Areas.AreaCode WHERE VoucherDate Between '2026-01-05' AND '2026-01-05' AND ConcessionHeader.AreaCode ='Kot' order by VoucherDate, ConcessionHeader.VoucherID
Select h.VoucherID, VoucherDate, b.TotalAmount ,Name, h.StaffID from WorkShopPartsHeader h join (SELECT VoucherID, sum(amount) as TotalAmount FROM WorkShopPartsBody GROUP BY VoucherID) b on h.VoucherID = b.VoucherID left outer join Staff s on h.StaffID = s.staffid WHERE VoucherDate Between '2026-01-05' AND '2026-01-05' and name like '%x%' and h.StaffID like '%3%'
Select h.VoucherID, h.AreaCode, [Month], sum(Income)-sum(Less)-sum(Expense) as Profit , AreaName from PartnershipProfitHeader h join PartnershipProfitBody b on h.VoucherID = b.VoucherID join Areas a on h.AreaCode = a.AreaCode WHERE [Month] Between '2026-01-05' AND '2026-01-05' AND h.AreaCode ='Kot' Group By h.VoucherID, h.AreaCode, [Month], AreaName order by [Month], h.VoucherID
 select left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) as PrevAreaCode , right(frominscustomerid,len(frominscustomerid)-PATINDEX('% %',frominscustomerid)) as PrevCardNo , Name, c.TotalAmount as Total, FromAmount as Previous , left(Toinscustomerid,PATINDEX('% %',Toinscustomerid)-1) as NewAreaCode , right(Toinscustomerid,len(Toinscustomerid)-PATINDEX('% %',Toinscustomerid)) as NewCardNo , ToAmount as Remain, ToDate from convertArea c  inner join inscustomerheader h on c.frominscustomerid = h.inscustomerid where ToDate between '2026-01-05' and '2026-01-05' and Name like '%x%' and left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) = 'Kot' and right(frominscustomerid,len(frominscustomerid)-PATINDEX('% %',frominscustomerid)) like '%1%'
 Select s.*, f.name, f.FName, designation, SalaryMonth , s.BasicSalary+Salecomm+saleprize+ordercomm+orderprize+reccomm+recprize+supplycomm+s.other-s.GPFund-s.KFFund-RecLoan-less as total FROM salaries s inner join staff f on s.StaffID = f.StaffID WHERE SalaryMonth >='2026-01-05' and SalaryMonth < '2026-01-05' and f.Name like '%x%' and f.staffid ='2014'
 Select s.*, f.name, s.SalaryMonth , isnull(b.totamount,0)+S.BasicSalary + S.Other - s.GPFund - s.KFFund - RecLoan - less as total  from FrenchiserSalaryHeader s left outer join (select staffid, salarymonth, sum(amount)totamount from FrenchiserSalaryBody group by staffid, salarymonth) b on b.staffid = s.staffid and b.salarymonth = s.salarymonth inner join staff f on s.StaffID = f.StaffID WHERE s.SalaryMonth >='2026-01-05' and s.SalaryMonth < '2026-01-05' and f.Name like '%x%' and f.staffid ='2014'
Select h.StockID, Date, sum(qty) as Qty, BranchName, AccountName from StockInHeader h inner join StockInBody b on h.StockID = b.StockID inner join branches br on br.branchcode = h.branchcode left outer join Accounts a on a.AccountNo = h.AccountNo inner join Products p on p.ProductID = b.ProductID WHERE Date Between '2026-01-05' AND '2026-01-05' and h.BranchCode=1 and ProductName like '%x%' Group By h.StockID, Date, BranchName, AccountName
Select h.StockID, Date, count(chasisNo) as Qty, r.Name as ReceivingName from StockInDetailHeader h inner join StockInDetailBody b on h.StockID = b.StockID left outer join Staff r on h.ReceivingCode = r.StaffID inner join Products p on p.ProductID = b.ProductID WHERE Date Between '2026-01-05' AND '2026-01-05' and ProductName like '%x%' and EngineNo = 'E1' and ChasisNo = 'C1' Group By h.StockID, Date, r.Name
 Select ProductName, Qty from StockInHeader h inner join StockInBody b on h.StockID = b.StockID inner join Products p on p.ProductID = b.ProductID Where h.StockID = 1
 Select ProductName, ChasisNo, EngineNo from StockInDetailHeader h inner join StockInDetailBody b on h.StockID = b.StockID inner join Products p on p.ProductID = b.ProductID Where h.StockID = 1
Select  gph.*, BranchName,a.AreaName, st.Name as Driver, r.Name as Receiving  from GatePassHeader gph left outer join Staff st on gph.DriverCode=st.StaffID left outer join Staff r on gph.ReceivingCode=r.StaffID join Areas a on a.AreaCode=gph.AreaCode join Branches b on b.BranchCode=gph.BranchCode where GatePassID=1
select pr.ProductName,gpb.* from GatePassBody gpb join Products pr on gpb.ProductID=pr.ProductID where GatePassID=1
Select  sih.*, Branchname, AccountName from StockInHeader sih join Branches b on  b.BranchCode = sih.BranchCode  left outer join Accounts a on  a.AccountNo = sih.AccountNo where StockID=1
Select * from StockInBody where StockID=1
select pr.ProductName,sib.* from StockInBody sib join Products pr on sib.ProductID=pr.ProductID where StockID=1
Select * from StockInHeader where StockID = 1
select * from StockInHeader where StockID=1
select * from vuAccounts where AccountNo = 'Kot'
Select h.*, Branchname, AccountName from StockOutHeader h join Branches b on  b.BranchCode = h.BranchCode  left outer join Accounts a on  a.AccountNo = h.AccountNo where StockID = 1
Select h.*, r.name as ReceivingName from StockInDetailHeader h left outer join Staff r on h.ReceivingCode = r.StaffID where StockID = 1
Select * from StockInDetailBody where StockID=1
select pr.ProductName,sib.* from StockInDetailBody sib join Products pr on sib.ProductID = pr.ProductID where StockID=1
Select * from StockInDetailHeader where StockID = 1
select * from StockInDetailHeader where StockID=1
Select * from StockInDetailBody where ProductID = '101' and EngineNo = 'Kot' and ChasisNo = 'Kot'
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
 Select  h.*,ar.AreaName,AM.Name as AMName,SAM.Name as SAMName, w.Name as StaffName, b.CardNo, ih.Name, ih.FName, ih.City, ReceiptNo, Amount, i.Balance from (select * from RecoveryHeader where VoucherID=1) h join Areas ar on h.AreaCode=ar.AreaCode join Staff AM on h.AMStaffID=AM.StaffID join Staff SAM on h.SAMStaffID=SAM.StaffID left outer join Staff w on h.StaffID=w.StaffID inner join RecoveryBody b on b.voucherid = h.voucherid inner join InstallmentBalances i on i.insCustomerID = b.insCustomerID inner join InsCustomerHeader ih on ih.insCustomerID = b.insCustomerID Order By ReceiptNo
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
 select h.*, Name as StaffName, FName, Address, Designation, b.ProductID, ProductName, Type, Commision, Qty, Amount from FrenchiserSalaryHeader h inner join FrenchiserSalaryBody b on b.staffid = h.staffid and h.SalaryMonth = b.SalaryMonth inner join Products p on p.ProductID = b.ProductID inner join staff s on s.staffid = h.staffid where h.StaffID='2014' and h.SalaryMonth = '2026-01-05' 
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
 select h.*, isnull(amount,0)amount, partname, Name as StaffName, Address, Fname, Designation from WorkShopSalaryHeader h left outer join WorkShopSalaryBody b on b.staffid = h.staffid and h.SalaryMonth = b.SalaryMonth left outer join parts p on p.partid = b.partid inner join staff s on s.staffid = h.staffid where h.StaffID='2014' and h.SalaryMonth = '2026-01-05' 
 Select GatePassHeader.*,GatePassBody.ProductID,GatePassBody.OutNewProducts,GatePassBody.ReturnOldProducts,GatePassBody.ReturnNewProducts,BranchName,Products.ProductName, d.Name, r.name as Receiving  from GatePassHeader inner join GatePassBody on GatePassHeader.GatePassID=GatePassBody.GatePassID inner join Branches on GatePassHeader.BranchCode=Branches.BranchCode inner join Products on GatePassBody.ProductID=Products.ProductID left outer join Staff d on GatePassHeader.DriverCode=d.StaffID left outer join Staff r on GatePassHeader.ReceivingCode=r.StaffID Where GatePassHeader.GatePassID = 1
 Select s.*, f.name, s.SalaryMonth , isnull(b.totamount,0)+S.BasicSalary + S.Other - s.GPFund - s.KFFund - RecLoan - less as total  from WorkShopSalaryHeader s left outer join (select staffid, salarymonth, sum(amount)totamount from WorkShopSalaryBody group by staffid, salarymonth) b on b.staffid = s.staffid and b.salarymonth = s.salarymonth inner join staff f on s.StaffID = f.StaffID WHERE s.SalaryMonth >='2026-01-05' and s.SalaryMonth < '2026-02-05' and f.Name like '%x%'
Select ReturnHeader.VoucherID, ReturnHeader.AreaCode, VoucherDate,Returnbody.TotalAmount ,Areas.AreaName from ReturnHeader join (SELECT VoucherID, sum(amount) as TotalAmount FROM ReturnBody GROUP BY VoucherID) ReturnBody on ReturnHeader.VoucherID=ReturnBody.VoucherID join Areas on ReturnHeader.AreaCode=Areas.AreaCode WHERE VoucherDate Between '2026-01-05' AND '2026-02-05' AND ReturnHeader.AreaCode ='Kot' order by VoucherDate, ReturnHeader.VoucherID
Select h.StockID, Date, sum(qty) as Qty, BranchName, AccountName from StockOutHeader h inner join StockOutBody b on h.StockID = b.StockID inner join branches br on br.branchcode = h.branchcode left outer join Accounts a on a.AccountNo = h.AccountNo inner join Products p on p.ProductID = b.ProductID WHERE Date Between '2026-01-05' AND '2026-02-05' and h.BranchCode=1 Group By h.StockID, Date, BranchName, AccountName
 Select ProductName, Qty from StockOutHeader h inner join StockOutBody b on h.StockID = b.StockID inner join Products p on p.ProductID = b.ProductID Where h.StockID = 1
 select Productid,sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  where [order] = 1 and LargeVehicle=1 and  driverid ='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Productid
 select Groupid, sum(qty)as qty from inscustomerheader h  inner join inscustomerbody b on h.inscustomerid = b.inscustomerid  inner join products p on p.productid = b.productid  where [order] = 1 and SAMStaffID='2014' and month(saledate) = 1  and year(saledate) = 2026 group by Groupid
Select * from StockOutBody where StockID=1

-- Procedures

exec SPInstallmentBalances '2026-01-05'
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
Delete from GatePassBody where GatePassID = 1
Delete from GatePassHeader where GatePassID = 1
Delete from StockInBody where StockID = 1
Delete from StockInHeader where StockID = 1
Delete from StockInDetailBody where StockID = 1
Delete from StockInDetailHeader where StockID = 1
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
Delete from StockOutBody where StockID = 1
Delete from StockOutHeader where StockID = 1
