// Not run: written from the language's documentation. A short sale in Delphi, late bound, without
// an imported type library.
program sale;

{$APPTYPE CONSOLE}

uses
  SysUtils, ActiveX, ComObj, Variants;

const
  Accepted = 1;

var
  Printer: OleVariant;

function OpenSession(Number: Integer): Boolean;
begin
  Result := True;
  try
    Printer.Abrir(Number);
  except
    // 9: no such number; 6, 13: no number at all; 40001: the port does not open.
    on E: EOleException do
    begin
      Writeln(E.ErrorCode and $FFFF, ' (', E.Source, '): ', E.Message);
      Result := False;
    end;
  end;
end;

function SellLine(const Description: string; Price: Currency; Quantity, Rate: Double): Boolean;
begin
  Printer.PasarItem(Description, Price, Quantity, Rate);
  Result := Printer.UltimoEnvio = Accepted;
  if not Result then
    Writeln(Integer(Printer.UltimoEnvio), ': ', string(Printer.DescripcionError));
end;

begin
  CoInitialize(nil);
  Printer := CreateOleObject('PrinterFiscalCorvid.PrinterFiscal');
  if OpenSession(7) then
  begin
    Printer.PasarDatosCliente('MARIA PEREZ', 'V-12345678-9', 'Caracas');
    // EmptyParam is an argument left out; Null and Unassigned count as given. False is success.
    if SellLine('PAN', 12.5, 2, 16) and not Boolean(Printer.SubTotal(EmptyParam)) then
      Printer.CerrarConMedio(1, 29);
    Writeln(Integer(Printer.StatusS1.numeroUltimaFactura));
    Printer.Cerrar;
  end;
  Printer := Unassigned;
  CoUninitialize;
end.
