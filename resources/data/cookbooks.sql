-- The cookbook every recipe falls back to; it can be neither renamed nor deleted.
INSERT INTO Cookbook (Name, Specialty) VALUES
    ('General', 'None');
