// error: catches and prints an error.
program error;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  zulcore, zulcore_raw;

begin
  // --8<-- [start:error]
  try
    TZulKey.ReadText('not a key').Free;
  except
    on E: EZulError do
      if E.Code = OPEN_ERROR then
        WriteLn('no such file: ', E.Message)
      else
        WriteLn(E.Name, ' ', E.Code, ': ', E.Text, ' ', E.Detail);
  end;
  // --8<-- [end:error]
end.
