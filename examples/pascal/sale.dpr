// A whole sale in Delphi or Free Pascal, early bound. PrinterFiscalCorvid_TLB is the unit that an
// importer of type libraries makes from the library: in Delphi "Component, Import Component", in
// Free Pascal TTypeLibImporter of its unit typelib, with AppendVersionNumber off.
//
//   sale [port number]        (without a number: COM7)
program sale;

{$IFDEF FPC}{$MODE DELPHIUNICODE}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  SysUtils, ActiveX, ComObj, Variants, PrinterFiscalCorvid_TLB;

var
  Printer: IPrinterFiscal2;

function PortNumber: OleVariant;
begin
  Result := 7;
  if ParamCount > 0 then
    Result := ParamStr(1);
end;

function OpenSession: Boolean;
begin
  Result := True;
  try
    Printer.Abrir(PortNumber);
    Writeln('Printer ', Printer.SerialPrinter);
  except
    // 9: no such number; 6, 13: no number at all; 40001: the port does not open.
    on E: EOleException do
    begin
      Writeln('Abrir: error ', E.ErrorCode and $FFFF, ' from ', E.Source, ': ', E.Message);
      Result := False;
    end;
  end;
end;

// Only a command that the printer accepted once lets the sale go on.
function Done(const Member: string; Failed: Boolean = False): Boolean;
begin
  Result := (Printer.UltimoEnvio = envAceptado) and not Failed;
  Writeln(Member, ': UltimoEnvio ', Printer.UltimoEnvio, ', ', Printer.DescripcionError);
end;

function BeginInvoice: Boolean;
begin
  Printer.IniciarFactura('Maria Perez', 'V-12345678-9',
    'Avenida Bolivar, edificio Los Proceres, piso 3, Caracas');
  Result := Done('IniciarFactura');
end;

function SellLine(const Description: string; Price: Currency; Quantity, Rate: Double): Boolean;
begin
  Printer.PasarItem(Description, Price, Quantity, Rate);
  Result := Done('PasarItem');
end;

// SubTotal and PasarDescuento answer True when something went wrong.
function CloseSale: Boolean;
begin
  Result := False;
  // EmptyParam is an argument left out; Null and Unassigned count as given.
  if Done('SubTotal', Printer.SubTotal(EmptyParam)) and
    Done('PasarDescuento', Printer.PasarDescuento(10)) then
  begin
    Printer.CerrarConMedio(1, 100);
    Result := Done('CerrarConMedio');
  end;
end;

function MakeSale: Boolean;
begin
  Result := BeginInvoice and SellLine('Pan campesino', 12.5, 2, 16) and
    SellLine('Leche entera 1 l', 3.2, 6, 0) and SellLine('Cafe molido 500 g', 8.75, 1, 8) and
    CloseSale;
end;

procedure Sell;
begin
  if MakeSale then
    Writeln('The sale is closed.')
  else
  begin
    ExitCode := 1;
    // A document that stays open would take up the lines of the next sale.
    Printer.CancelarTransaccion;
    Done('CancelarTransaccion');
  end;
  Printer.GetStatus;
  Writeln(string(Printer.explainSTS1));
  Printer.Cerrar;
end;

begin
  CoInitialize(nil);
  Printer := CoPrinterFiscal.Create;
  if OpenSession then
    Sell
  else
    ExitCode := 1;
  Printer := nil;
  CoUninitialize;
  Writeln('fin');
end.
