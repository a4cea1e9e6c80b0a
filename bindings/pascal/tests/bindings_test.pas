// bindings_test VECTORS: what bindings/pascal computes, refuses and wipes.
program bindings_test;
{$MODE DELPHI}
{$APPTYPE CONSOLE}

uses
  SysUtils, Classes, zulcore, zulcore_raw;

type
  TAction = procedure;

var
  Fields: TStringList;
  Faults: Integer = 0;

procedure Claim(Good: Boolean; const What: string);
begin
  if Good then
    Exit;
  WriteLn('FAULT: ', What);
  Inc(Faults);
end;

procedure Refused(Action: TAction; Code: Integer; const What: string);
begin
  try
    Action;
    Claim(False, What + ': not refused');
  except
    on E: EZulError do
      Claim((E.Code = Code) and (E.Text <> '') and (Pos(E.Name, E.Message) = 1), What + ': ' + E.Message);
  end;
end;

function Text(const Name: string): string;
begin
  Result := Fields.Values[Name];
end;

function Bytes(const Name: string): TBytes;
begin
  Result := ZulFromHex(UTF8String(Text(Name)));
end;

function Number(const Name: string): Integer;
begin
  Result := StrToInt(Text(Name));
end;

function Same(const A, B: TBytes): Boolean;
begin
  Result := (Length(A) = Length(B)) and ((A = nil) or CompareMem(@A[0], @B[0], Length(A)));
end;

procedure DecryptRecord;
begin
  ZulDecrypt(Bytes('Key'), Bytes('Message'), Bytes('Aad'), Bytes('Nonce'), Text('Algorithm'));
end;

procedure EncryptRecord;
begin
  ZulEncrypt(Bytes('Key'), Bytes('Message'), Bytes('Aad'), Bytes('Nonce'), Text('Algorithm'));
end;

procedure VerifyRecord;
var
  Key: TZulKey;
begin
  Key := TZulKey.ReadText(StringOf(Bytes('Key')));
  try
    Key.Verify(Bytes('Signature'), Bytes('Message'), Text('Algorithm'));
  finally
    Key.Free;
  end;
end;

procedure RunRecord;
var
  Kind: string;
  Found, Size: Integer;
  Result: TBytes;
begin
  Kind := Text('Kind');
  Size := Length(Bytes('Result'));
  if Kind = 'hash' then
    Result := ZulHash(Bytes('Message'), Text('Algorithm'))
  else if Kind = 'hmac' then
    Result := ZulHmac(Bytes('Key'), Bytes('Message'), Text('Algorithm'))
  else if Kind = 'pbkdf2' then
    Result := ZulPbkdf2(Size, Bytes('Password'), Bytes('Salt'), Number('Iterations'), Text('Hash'))
  else if Kind = 'hkdf' then
    Result := ZulHkdf(Size, Bytes('Key'), Bytes('Salt'), Bytes('Info'), Text('Hash'))
  else if Kind = 'scrypt' then
    Result := ZulScrypt(Size, Bytes('Password'), Bytes('Salt'), Number('N'), Number('R'), Number('P'))
  else if Kind = 'aead' then
  begin
    Result := ZulEncrypt(Bytes('Key'), Bytes('Message'), Bytes('Aad'), Bytes('Nonce'), Text('Algorithm'));
    Claim(Same(ZulDecrypt(Bytes('Key'), Result, Bytes('Aad'), Bytes('Nonce'), Text('Algorithm')), Bytes('Message')),
      'decryption, ' + Text('Algorithm'));
  end
  else if Kind = 'verify' then
  begin
    VerifyRecord;
    Exit;
  end
  else
  begin
    Found := Number('Error');
    if Kind = 'verify-refused' then
      Refused(VerifyRecord, Found, Kind)
    else if Found = BAD_KEY_LEN_ERROR then
      Refused(EncryptRecord, Found, Kind)
    else if Kind = 'aead-refused' then
      Refused(DecryptRecord, Found, Kind)
    else
      Claim(False, 'a record of an unknown kind: ' + Kind);
    Exit;
  end;
  Claim(Same(Result, Bytes('Result')), Kind + ' ' + Text('Algorithm') + Text('Hash'));
end;

procedure RunVectors(const FileName: string);
var
  Lines: TStringList;
  Line: string;
  Count: Integer;
begin
  Count := 0;
  Lines := TStringList.Create;
  Lines.LoadFromFile(FileName);
  Lines.Add('');
  for Line in Lines do
    if Line = '' then
    begin
      if Fields.Count > 0 then
      begin
        RunRecord;
        Inc(Count);
      end;
      Fields.Clear;
    end
    else if Line[1] <> '#' then
      Fields.Add(TrimRight(Copy(Line, 1, Pos(' =', Line) - 1)) + '=' + Trim(Copy(Line, Pos('=', Line) + 1, MaxInt)));
  Lines.Free;
  Claim(Count > 30, 'too few records');
end;

procedure WriteFile(const Name, Content: string);
var
  Stream: TFileStream;
begin
  Stream := TFileStream.Create(Name, fmCreate);
  Stream.WriteBuffer(Content[1], Length(Content));
  Stream.Free;
end;

procedure Digests;
var
  Hash: TZulHash;
  Mac: TZulHmac;
begin
  Hash := TZulHash.Create('shake128');
  Hash.Add(ZulUtf8('ab'));
  Hash.Add(nil);
  Hash.Add(ZulUtf8('c'));
  Claim(ZulToHex(Hash.Finish(8)) = '5881092dd818bf5c', 'shake128 in pieces');
  try
    Hash.Add(ZulUtf8('c'));
    Claim(False, 'an ended digest takes data');
  except
    on E: EZulError do
      Claim(E.Code = INVALID_DATA_ERROR, E.Message);
  end;
  Hash.Free;
  Mac := TZulHmac.Create(ZulUtf8('Jefe'));
  Mac.Add(ZulUtf8('what do ya want '));
  Mac.Add(ZulUtf8('for nothing?'));
  Claim(Same(Mac.Finish, ZulHmac(ZulUtf8('Jefe'), ZulUtf8('what do ya want for nothing?'))), 'a MAC in pieces');
  Mac.Free;
  WriteFile('abc', 'abc');
  Claim(ZulHashFileHex('abc', 'sha1') = 'a9993e364706816aba3e25717850c26c9cd0d89d', 'digest of a file');
end;

procedure Encodings;
var
  Data, Other, Key: TBytes;
begin
  Data := ZulRandomBytes(70000);
  Claim(Same(ZulFromBase64(ZulToBase64(Data)), Data) and Same(ZulFromHex(ZulToHex(Data)), Data), 'base64 and hex');
  Claim((ZulToHex(nil) = '') and (ZulFromHex('') = nil) and (Length(ZulRandomBytes(0)) = 0), 'empty encodings');
  Key := ZulRandomBytes(32);
  Claim(Same(ZulDecrypt(Key, ZulEncrypt(Key, Data)), Data), 'a random nonce');
  Claim(Length(ZulDecrypt(Key, ZulEncrypt(Key, nil, ZulUtf8('aad')), ZulUtf8('aad'))) = 0, 'an empty message');
  try
    ZulDecrypt(ZulRandomBytes(32), ZulEncrypt(Key, nil));
    Claim(False, 'an empty message under another key');
  except
    on E: EZulError do
      Claim(E.Code = DECRYPT_ERROR, E.Message);
  end;
  Other := Key;
  ZulWipe(Key);
  Claim((Key = nil) and Same(Other, ZulFromHex(StringOfChar('0', 64))), 'wiped');
end;

procedure Keys;
var
  Mine, Read, Theirs: TZulKey;
  Pem: string;
begin
  Mine := TZulKey.Generate('x25519');
  Mine.Save('x.pem', 'p'#$C3#$A9, 'iterations=1000');
  Read := TZulKey.ReadFile('x.pem', 'p'#$C3#$A9);
  Theirs := TZulKey.Generate('X25519');
  Claim(Read.IsPrivate and Read.Matches(Mine.PublicKey) and not Read.Matches(Theirs), 'a key saved and read');
  Claim(Same(Mine.Agree(Theirs.PublicKey), Theirs.Agree(Read.PublicKey)), 'agreement');
  Claim(Mine.ToString = 'private x25519 key of 256 bits', Mine.ToString);
  Claim((Mine.Curve = 'x25519') and (Length(Mine.Fingerprint) = 64) and (Mine.Query('bits') = '256'), 'queries');
  Mine.PublicKey.Save('x.pub');
  with TStringList.Create do
  begin
    LoadFromFile('x.pub');
    Pem := Text;
  end;
  Claim(TZulKey.ReadText(Pem).Fingerprint = Mine.Fingerprint, 'a public key as text');
  Mine.Close;
  Claim(Mine.ToString = 'closed key', 'a closed key');
  Mine.Free;
end;

procedure UseClosed;
var
  Key: TZulKey;
begin
  Key := TZulKey.Generate('p-256');
  Key.Close;
  Key.Sign(ZulUtf8('abc'));
end;

procedure SaveOpen;
begin
  TZulKey.Generate('p-256').Save('open.pem');
end;

procedure ZeroInPassword;
begin
  TZulKey.ReadFile('x.pem', 'p'#0'q');
end;

procedure ZeroInName;
begin
  ZulSelfSign('c'#0'd', TZulKey.Generate('p-256'), 'CN=A');
end;

procedure NoKey;
begin
  ZulSelfSign('c', nil, 'CN=A');
end;

procedure WrongPassword;
begin
  TZulKey.ReadFile('x.pem', 'wrong');
end;

procedure NegativeLength;
begin
  ZulRandomBytes(-1);
end;

procedure BadDescription;
begin
  ZulSelfSign('c', TZulKey.Generate('p-256'), 'CN=A;unknown=1');
end;

procedure Seals;
var
  Identity: UTF8String;
begin
  Identity := ZulMakeIdentity;
  ZulSealFile('abc.age', 'abc', ZulRecipient(Identity), ZUL_SEAL_ARMOUR);
  ZulOpenFile('abc.opened', 'abc.age', Identity);
  Claim(ZulHashFileHex('abc.opened') = ZulHashFileHex('abc'), 'sealed and opened');
  ZulWipe(Identity);
  ZulWipeFile('abc.opened');
  Claim((Identity = '') and not FileExists('abc.opened'), 'a file wiped');
end;

procedure OpenWithAnother;
begin
  ZulOpenFile('abc.opened', 'abc.age', ZulMakeIdentity);
end;

procedure Certificates;
var
  Root, Leaf, Unpacked: TZulKey;
  Report, Pem: UTF8String;
  Found: TSearchRec;
begin
  Root := TZulKey.Generate('rsa-2048');
  Leaf := TZulKey.Generate('rsa-2048');
  ZulSelfSign('root.pem', Root, 'CN=R'#$C3#$B6't;profile=ca');
  ZulRequest('leaf.req', Leaf, 'CN=leaf;dns=leaf.example');
  ZulIssue('leaf.pem', 'root.pem', Root, 'leaf.req', 'profile=server;copy=subjectAltName;serial=77');
  Claim((ZulCertQuery('leaf.pem', 'serialNumber') = '77') and (ZulCertQuery('leaf.pem', 'crl') = ''), 'query');
  Claim(ZulCertQuery('root.pem', 'subject') = 'CN=R'#$C3#$B6't', 'a subject in UTF-8');
  Claim(Pos('"leaf.example"', ZulCertReport('leaf.pem', ZUL_CERT_JSON)) > 0, 'report');
  Pem := ZulIssuePem('root.pem', Root, ZulRequestPem(Leaf, 'CN=pem'), 'profile=client');
  Claim(ZulCertQuery(Pem, 'subject') = 'CN=pem', 'a certificate as PEM');
  Claim(ZulCertQuery(ZulIssuePem(ZulSelfSignPem(Root, 'CN=R;profile=ca'), Root, Leaf, 'CN=x'), 'issuer') = 'CN=R',
    'an issuer as PEM');
  Claim(FindFirst(GetTempDir + 'zulcore????????????????????????????????', faAnyFile, Found) <> 0, 'a folder that stays');
  ZulCheckName('leaf.pem', 'leaf.example');
  ZulIssueCrl('root.crl', 'root.pem', Root, 'cert=leaf.pem');
  ZulIssueCrl('next.crl', 'root.pem', Root, '', 'days=7', 'root.crl');
  ZulCheckPath('leaf.pem', 'root.pem', '', '', 'host=leaf.example', Report);
  Claim(Report <> '', 'no report');
  try
    ZulCheckPath('leaf.pem', 'root.pem', '', 'next.crl', '', Report, ZUL_CERT_JSON);
    Claim(False, 'a revoked certificate');
  except
    on E: EZulError do
      Claim((E.Code = BAD_KEY_ERROR) and (E.Detail <> '') and (Report[1] = '{'), E.Message);
  end;

  ZulP12Pack('leaf.p12', 'leaf.pem;root.pem', Leaf, 'secret', 'Leaf');
  Unpacked := TZulKey.UnpackP12('leaf.p12', 'secret', 'certs.pem');
  Claim(Unpacked.Matches(Leaf.PublicKey) and (ZulCertQuery('certs.pem', 'serialNumber') = '77'), 'PKCS #12');
  Claim(Pos('"Leaf"', ZulP12List('leaf.p12', 'secret')) > 0, 'a PKCS #12 list');
  Claim(Pos('verified=no', ZulP12List('leaf.p12')) > 0, 'a PKCS #12 list without a password');

  ZulCmsSign('abc.p7m', 'abc', 'leaf.pem', Leaf);
  ZulCmsVerify('abc.p7m', 'leaf.pem');
  ZulCmsContent('abc.read', 'abc.p7m');
  ZulCmsEncrypt('abc.env', 'abc.read', ['leaf.pem']);
  ZulCmsDecrypt('abc.plain', 'abc.env', Leaf, 'leaf.pem');
  Claim(ZulHashFileHex('abc.plain') = ZulHashFileHex('abc'), 'a message');
  Claim(Length(ZulOcspRequest('root.pem', 'leaf.pem')) > 50, 'OCSP request');
end;

procedure TrustAnother;
var
  Report: UTF8String;
begin
  ZulSelfSign('other.pem', TZulKey.Generate('p-256'), 'CN=other;profile=ca');
  ZulCheckPath('leaf.pem', 'other.pem', 'root.pem', '', '', Report);
end;

procedure EncryptForEllipticKey;
begin
  ZulSelfSign('ec.pem', TZulKey.Generate('p-256'), 'CN=ec');
  ZulCmsEncrypt('abc.env2', 'abc', ['leaf.pem', 'ec.pem']);
end;

begin
  Fields := TStringList.Create;
  Claim(ZulVersion > 0, 'version');
  RunVectors(ParamStr(1));
  Digests;
  Encodings;
  Keys;
  Refused(UseClosed, INVALID_DATA_ERROR, 'a closed key');
  Refused(SaveOpen, BAD_PARAM_ERROR, 'a private key without a password');
  Refused(ZeroInPassword, BAD_PARAM_ERROR, 'a zero byte in a password');
  Refused(ZeroInName, BAD_PARAM_ERROR, 'a zero byte in a name');
  Refused(NoKey, BAD_PARAM_ERROR, 'no key');
  Refused(WrongPassword, DECRYPT_ERROR, 'a wrong password');
  Refused(NegativeLength, OUT_OF_RANGE_ERROR, 'a negative length');
  Refused(BadDescription, BAD_PARAM_ERROR, 'a bad description');
  Seals;
  Refused(OpenWithAnother, NO_MATCH_ERROR, 'another identity');
  Certificates;
  Refused(TrustAnother, ISSUER_ERROR, 'an authority that is not trusted');
  Refused(EncryptForEllipticKey, BAD_KEY_ERROR, 'a recipient that cannot read');
  Claim(not FileExists('abc.env2'), 'a message that one recipient cannot read');
  if Faults > 0 then
    Halt(1);
  WriteLn('good');
end.
