// Writes a type library as a unit, by the compiler's own importer.
//
//   type_importer LIBRARY FOLDER        (a path that ends with a separator)
program type_importer;

{$APPTYPE CONSOLE}

uses
  TypeLib;

begin
  with TTypeLibImporter.Create(nil) do
  begin
    // The library's name and _TLB, as every importer of its kind calls the unit.
    AppendVersionNumber := False;
    InputFileName := ParamStr(1);
    Execute;
    UnitSource.SaveToFile(ParamStr(2) + UnitName + '.pas');
  end;
end.
